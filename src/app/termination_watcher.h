#pragma once

#include <QObject>

class QSocketNotifier;

namespace kirameki {

// Turns SIGTERM, SIGINT and SIGHUP into a signal of the window thread, so that a viewer
// told to stop closes as if its window were closed and keeps its settings. Construct it
// before QApplication, so that every thread starts with the signals blocked.
class TerminationWatcher : public QObject {
    Q_OBJECT

  public:
    TerminationWatcher();
    ~TerminationWatcher() override;
    // Starts listening; needs the application's event loop.
    void Start();

  signals:
    void terminationRequested();

  private:
    int fd_ = -1;
    QSocketNotifier* notifier_ = nullptr;
};

}  // namespace kirameki
