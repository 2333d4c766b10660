#include "app/light_performance_window.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPixmap>
#include <QPushButton>
#include <QSpinBox>
#include <QTableWidget>
#include <QVBoxLayout>

#include "app/progress_window.h"
#include "app/qt_worker_sink.h"
#include "app/viewer_session.h"
#include "output/tilt_plot.h"
#include "scene/render_settings.h"

namespace kirameki {

namespace {

struct FigureRow {
    const char* name;
    double LightFigures::*field;
};

const FigureRow kRows[] = {
    {QT_TRANSLATE_NOOP("kirameki::LightPerformanceWindow", "ISO brightness"),
     &LightFigures::isoBrightness},
    {QT_TRANSLATE_NOOP("kirameki::LightPerformanceWindow", "COS brightness"),
     &LightFigures::cosBrightness},
    {QT_TRANSLATE_NOOP("kirameki::LightPerformanceWindow", "Leakage"), &LightFigures::leakage},
    {QT_TRANSLATE_NOOP("kirameki::LightPerformanceWindow", "Head shadow"),
     &LightFigures::headShadow},
    {QT_TRANSLATE_NOOP("kirameki::LightPerformanceWindow", "ASET green (low light)"),
     &LightFigures::asetGreen},
    {QT_TRANSLATE_NOOP("kirameki::LightPerformanceWindow", "ASET red (45-75 degrees)"),
     &LightFigures::asetRed},
    {QT_TRANSLATE_NOOP("kirameki::LightPerformanceWindow", "ASET blue (from above)"),
     &LightFigures::asetBlue},
    {QT_TRANSLATE_NOOP("kirameki::LightPerformanceWindow", "ASET black (leakage)"),
     &LightFigures::asetBlack},
    {QT_TRANSLATE_NOOP("kirameki::LightPerformanceWindow", "Contrast (dark share)"),
     &LightFigures::contrast},
    {QT_TRANSLATE_NOOP("kirameki::LightPerformanceWindow", "Fire (saturated share)"),
     &LightFigures::fire},
    {QT_TRANSLATE_NOOP("kirameki::LightPerformanceWindow", "Mean chroma"),
     &LightFigures::meanChroma},
};

QPixmap PixmapOf(const FrameImage& image) {
    return QPixmap::fromImage(QtWorkerSink::ToQImage(image, 0, image.Height() - 1));
}

}  // namespace

LightPerformanceWindow::LightPerformanceWindow(ViewerSession& session,
                                               std::function<bool()> checkIndex, QWidget* parent)
    : QDialog(parent), session_(session), checkIndex_(std::move(checkIndex)) {
    setWindowTitle(tr("Light Performance"));
    auto* layout = new QVBoxLayout(this);

    auto* controls = new QHBoxLayout;
    controls->addWidget(new QLabel(tr("Head shadow:"), this));
    headShadow_ = new QSpinBox(this);
    headShadow_->setRange(0, 45);
    headShadow_->setValue(16);
    headShadow_->setSuffix(tr(" deg"));
    controls->addWidget(headShadow_);
    controls->addWidget(new QLabel(tr("Tilt up to:"), this));
    tiltMax_ = new QSpinBox(this);
    tiltMax_->setRange(5, 45);
    tiltMax_->setValue(30);
    tiltMax_->setSuffix(tr(" deg"));
    controls->addWidget(tiltMax_);
    controls->addStretch();
    auto* measure = new QPushButton(tr("Measure (&M)"), this);
    controls->addWidget(measure);
    layout->addLayout(controls);
    connect(measure, &QPushButton::clicked, this, [this] { Measure(); });

    auto* middle = new QHBoxLayout;
    figures_ = new QTableWidget(int(std::size(kRows)), 2, this);
    figures_->setHorizontalHeaderLabels({tr("Face-up"), tr("Tilt average")});
    for (int row = 0; row < int(std::size(kRows)); ++row)
        figures_->setVerticalHeaderItem(row, new QTableWidgetItem(tr(kRows[row].name)));
    figures_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    figures_->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    figures_->setMinimumWidth(380);
    figures_->resizeRowsToContents();
    // Every figure in sight without scrolling.
    figures_->setMinimumHeight(figures_->verticalHeader()->length() +
                               figures_->horizontalHeader()->sizeHint().height() +
                               2 * figures_->frameWidth());
    middle->addWidget(figures_);
    plot_ = new QLabel(this);
    plot_->setMinimumSize(480, 300);
    middle->addWidget(plot_);
    layout->addLayout(middle);
    spread_ = new QLabel(this);
    layout->addWidget(spread_);

    auto* pictures = new QGridLayout;
    const QString captions[4] = {tr("ISO"), tr("COS"), tr("ASET"), tr("Spectral fire")};
    for (int i = 0; i < 4; ++i) {
        pictures_[i] = new QLabel(this);
        pictures_[i]->setMinimumSize(180, 180);
        pictures_[i]->setAlignment(Qt::AlignCenter);
        pictures->addWidget(pictures_[i], 0, i);
        auto* caption = new QLabel(captions[i], this);
        caption->setAlignment(Qt::AlignCenter);
        pictures->addWidget(caption, 1, i);
    }
    layout->addLayout(pictures);
    spread_->setText(tr("Press Measure to study the stone as it is now."));
}

bool LightPerformanceWindow::Measure() {
    if (session_.Client().Busy() || (checkIndex_ && !checkIndex_()))
        return false;
    LightStudySetup setup;
    setup.parameters = RenderParametersFor(session_.Settings());
    setup.parameters.threads = 0;
    setup.size = std::clamp(session_.Settings().imageSize, 64, 512);
    setup.headShadow = headShadow_->value();
    setup.tiltMax = tiltMax_->value();
    ProgressWindow window(tr("Light Performance"), true, this);
    QtWorkerSink& sink = session_.Sink();
    connect(&sink, &QtWorkerSink::lightStudyProgress, &window, &ProgressWindow::Progress);
    connect(&sink, &QtWorkerSink::lightStudyFinished, &window, &ProgressWindow::Finish);
    connect(&window, &ProgressWindow::abortRequested, &window,
            [this] { session_.Client().Post(kAbortJob); });
    connect(&window, &ProgressWindow::started, &window,
            [this, &setup] { session_.Client().StartLightStudy(setup); });
    const int result = window.exec();
    LightStudy study = sink.TakeLightStudy();
    if (result != 1)
        return false;
    study_ = std::move(study);
    Show(study_);
    return true;
}

void LightPerformanceWindow::Show(const LightStudy& study) {
    for (int row = 0; row < int(std::size(kRows)); ++row) {
        const double faceUp = study.faceUp.*kRows[row].field;
        const double average = study.tiltAverage.*kRows[row].field;
        const bool faceUpOnly = kRows[row].field == &LightFigures::fire ||
                                kRows[row].field == &LightFigures::meanChroma;
        figures_->setItem(row, 0, new QTableWidgetItem(QString::asprintf("%.1f %%", faceUp)));
        figures_->setItem(row, 1,
                          new QTableWidgetItem(faceUpOnly ? QString("-")
                                                          : QString::asprintf("%.1f %%", average)));
    }
    spread_->setText(tr("ISO brightness moves by %1 % between face-up, %2 and %3 degrees of tilt.")
                         .arg(study.isoSpread, 0, 'f', 1)
                         .arg(tiltMax_->value() / 2.0, 0, 'f', 1)
                         .arg(tiltMax_->value()));
    const FrameImage* pictures[4] = {&study.iso, &study.cos, &study.aset, &study.spectral};
    for (int i = 0; i < 4; ++i)
        pictures_[i]->setPixmap(
            PixmapOf(*pictures[i]).scaled(180, 180, Qt::KeepAspectRatio, Qt::SmoothTransformation));
    plot_->setPixmap(PixmapOf(DrawTiltPlot(study.tilts)));
}

}  // namespace kirameki
