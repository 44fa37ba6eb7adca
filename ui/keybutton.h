// An owner-painted calculator key: a face in the row's colour, a one-pixel
// frame and a two-pixel bevel whose light and dark edges swap while pressed.
// It acts on release (clicked) and tells its description while hovered.
#pragma once

#include <QAbstractButton>
#include <QColor>
#include <QFont>
#include <QString>

namespace quorvel::ui {

class KeyButton : public QAbstractButton {
    Q_OBJECT

public:
    // A key showing `label` on `face` in `font` (made smaller when the label
    // would not fit); `description` goes to the hover line.
    KeyButton(const QString& label, const QString& description, const QColor& face, const QFont& font,
              QWidget* parent = nullptr);

    QString description() const { return description_; }
    QColor faceColor() const { return face_; }
    // The colour the label is painted in: black, or white on a dark face.
    QColor labelColor() const;
    // The light and dark bevel colours as painted now (swapped while pressed).
    QColor topLeftEdge() const;
    QColor bottomRightEdge() const;

signals:
    // The mouse moved over the key.
    void hovered(const QString& description);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    QSize sizeHint() const override { return {80, 28}; }

private:
    QString description_;
    QColor face_;
};

}  // namespace quorvel::ui
