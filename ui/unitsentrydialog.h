// The units-entry dialog: composes a unit string ("m/s^2") from the lists
// of base and derived units, "*", "/", exponent digits and a delete-back
// key. OK hands the composed text to the entry line as a quoted string.
#pragma once

#include <QDialog>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <array>
#include <memory>

namespace quorvel::ui {

class TabbedList;

class UnitsEntryDialog : public QDialog {
    Q_OBJECT

public:
    static constexpr int Composed = 1;
    static constexpr int Cancelled = 2;
    static constexpr int TextLimit = 255;   // characters of the unit string

    explicit UnitsEntryDialog(QWidget* parent = nullptr);
    ~UnitsEntryDialog() override;

    TabbedList* list() { return list_.get(); }
    QString unitText() const { return text_->text(); }

    // A double-click on line `row`: its symbol is appended ("*" first when
    // the text ends with a unit or an exponent).
    void chooseLine(int row);
    // "*" or "/": appended, or replacing an operator the text ends with;
    // "*" does nothing on an empty text.
    void appendOperator(QChar op);
    // An exponent digit 1..9: "^d" after a unit, or one more digit after an
    // exponent; nothing elsewhere.
    void appendExponent(int digit);
    // Removes the last part: an exponent with its "^", an operator, or a unit.
    void deleteBack();
    // OK: ends Composed.
    void pressOk() { done(Composed); }
    // Cancel (also Escape): ends Cancelled.
    void reject() override { done(Cancelled); }

private:
    void setText(const QString& text);

    std::unique_ptr<QVBoxLayout> layout_;
    std::unique_ptr<QLineEdit> text_;
    std::unique_ptr<TabbedList> list_;
    std::unique_ptr<QGridLayout> keyLayout_;
    std::array<std::unique_ptr<QPushButton>, 12> keys_;
    std::unique_ptr<QDialogButtonBox> buttons_;
};

}  // namespace quorvel::ui
