#pragma once

#include <QDialog>

class QLabel;
class QProgressBar;
class QPushButton;

namespace kirameki {

// The modal progress window of a capture ("Automatic Screen Capturing") or of an animated
// GIF ("Compiling Animated-GIF"): "%d / %d        %d %%", a bar and, for a capture, the
// "Abort (&A)" button with its help text. It starts its job when it opens and closes with
// the job's result (1 done, 2 aborted or failed).
class ProgressWindow : public QDialog {
    Q_OBJECT

  public:
    ProgressWindow(const QString& title, bool abortable, QWidget* parent = nullptr);

    void Progress(int frame, int frameCount);
    void Finish(int result) { done(result); }

  signals:
    void started();
    void abortRequested();

  protected:
    void showEvent(QShowEvent* event) override;
    void reject() override {}  // Escape and the close box do not end a running job

  private:
    QLabel* text_;
    QProgressBar* bar_;
    QPushButton* abort_ = nullptr;
    bool started_ = false;
};

}  // namespace kirameki
