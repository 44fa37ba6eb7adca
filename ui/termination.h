// SIGTERM, SIGHUP and SIGINT turned into a Qt signal on the UI thread, so
// that the window closes and the state is saved as on a normal exit.
#pragma once

#include <QObject>
#include <QSocketNotifier>
#include <memory>

namespace quorvel::ui {

class TerminationWatcher : public QObject {
    Q_OBJECT

public:
    // Installs the signal handlers (one watcher per process).
    TerminationWatcher();
    ~TerminationWatcher() override;

signals:
    // One of the signals arrived.
    void terminationRequested();

private:
    std::unique_ptr<QSocketNotifier> notifier_;
};

}  // namespace quorvel::ui
