#pragma once

#include <QColor>
#include <QImage>
#include <QObject>
#include <mutex>

#include "worker/worker_sink.h"

namespace kirameki {

// Carries the worker's notifications to the window thread as queued signals. The preview
// is painted here, on the worker thread, into an image of its own that travels with the
// signal; rendered rows travel as an image strip.
class QtWorkerSink : public QObject, public WorkerSink {
    Q_OBJECT

  public:
    explicit QtWorkerSink(QObject* parent = nullptr);

    void OpenTitleWindow() override;
    void PreviewDrawn(const PreviewPicture& picture) override;
    void RenderStarted() override;
    void RenderProgress(int percent) override;
    void RenderRows(const FrameImage& image, int first, int last) override;
    void RenderFinished() override;
    void CaptureProgress(int frame, int frameCount) override;
    void CaptureFinished(int result) override;
    void GifProgress(int frame, int frameCount) override;
    void GifFinished(int result) override;
    void LightStudyProgress(int done, int total) override;
    void LightStudyFinished(int result, const LightStudy& study) override;

    // The last light study the worker finished, taken once.
    LightStudy TakeLightStudy();

    static QImage ToQImage(const FrameImage& image, int first, int last);

  signals:
    void titleWindowRequested();
    void previewReady(const QImage& picture, int imageSize, double lightX, double lightY,
                      double lightZ, int target, bool targetChanged);
    void renderStarted();
    void renderProgress(int percent);
    void rowsRendered(const QImage& strip, int first, int size);
    void renderFinished();
    void captureProgress(int frame, int frameCount);
    void captureFinished(int result);
    void gifProgress(int frame, int frameCount);
    void gifFinished(int result);
    void lightStudyProgress(int done, int total);
    void lightStudyFinished(int result);

  private:
    std::mutex studyMutex_;
    LightStudy study_;
};

}  // namespace kirameki
