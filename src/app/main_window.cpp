#include "app/main_window.h"

#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QActionGroup>
#include <QApplication>
#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QDir>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFileInfo>
#include <QFontDatabase>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QTextEdit>
#include <QTimer>
#include <QVBoxLayout>
#include <cstdio>
#include <memory>

#include "app/light_area.h"
#include "app/light_performance_window.h"
#include "app/output_flows.h"
#include "app/render_window.h"
#include "app/view_panel.h"
#include "model/index_text.h"
#include "model/model_builder.h"
#include "model/stone_choice.h"
#include "model/stone_tables.h"
#include "output/messages.h"
#include "scene/stone_source.h"
#include "ui/back_color_light_dialog.h"
#include "ui/cutting_sheet.h"
#include "ui/design_window.h"
#include "ui/general_settings_dialog.h"
#include "ui/size_dialog.h"
#include "ui/transformable_models_dialog.h"

namespace kirameki {

namespace {

constexpr const char* kProductName = "K i r a m e k i";
constexpr const char* kVersion = "Version 0.1.0";

bool Japanese() {
    return QLocale().language() == QLocale::Japanese;
}

QString NameOf(std::string_view english, std::string_view japanese) {
    const std::string_view text = Japanese() ? japanese : english;
    return QString::fromUtf8(text.data(), qsizetype(text.size()));
}

QString IndexText(double index) {
    return QString::number(index, 'f', 2);
}

// The cut list's entry for the open design follows the cuts.
constexpr int kDesignEntry = kCutListSize;

// The first local file of a drag, if any.
QString DraggedFile(const QMimeData* data) {
    if (!data || !data->hasUrls())
        return {};
    for (const QUrl& url : data->urls())
        if (url.isLocalFile())
            return url.toLocalFile();
    return {};
}

// The information panel's font: Verdana (a Japanese Gothic in Japanese) where installed,
// else the system's sans-serif.
QFont InfoFont() {
    const QStringList wanted =
        Japanese() ? QStringList{"ＭＳ Ｐゴシック", "MS PGothic"} : QStringList{"Verdana"};
    QFont font = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
    for (const QString& family : wanted) {
        if (QFontDatabase::hasFamily(family)) {
            font.setFamilies({family});
            break;
        }
    }
    font.setStyleHint(QFont::SansSerif);
    font.setPointSizeF(8.0);
    return font;
}

// Typing in an edit box or moving in a list must not turn the stone as well.
bool TakesKeys(const QWidget* widget) {
    return qobject_cast<const QLineEdit*>(widget) ||
           qobject_cast<const QAbstractSpinBox*>(widget) ||
           qobject_cast<const QAbstractItemView*>(widget) ||
           qobject_cast<const QTextEdit*>(widget) || qobject_cast<const QPlainTextEdit*>(widget) ||
           (qobject_cast<const QComboBox*>(widget) &&
            static_cast<const QComboBox*>(widget)->isEditable());
}

}  // namespace

MainWindow::MainWindow(ViewerSession& session, FileChooser& files, QWidget* parent)
    : QMainWindow(parent), session_(session), files_(files) {
    setWindowTitle(tr("Kirameki"));
    BuildMenus();
    auto* central = new QWidget(this);
    auto* layout = new QHBoxLayout(central);
    panel_ = new ViewPanel(central);
    layout->addWidget(panel_, 1);
    layout->addWidget(BuildControls());
    setCentralWidget(central);
    renderWindow_ = new RenderWindow(this);
    flows_ = new OutputFlows(
        session_, this, files, [this] { return CheckRefractiveIndex(); },
        [this] {
            ShowChoice();
            ShowToggles();
        });
    connect(renderWindow_, &RenderWindow::screenShotRequested, this,
            [this] { flows_->SaveScreenShot(renderWindow_); });
    FillLists();
    ShowChoice();
    ShowToggles();
    ConnectWorker();
    setFocusPolicy(Qt::StrongFocus);
    setAcceptDrops(true);
    qApp->installEventFilter(this);
    resize(1040, 700);
    if (const std::string notice = session_.TakeStartNotice(); !notice.empty()) {
        // Told once the window is up, not from inside its construction.
        QTimer::singleShot(0, this, [this, notice] {
            session_.Prompts().Tell(tr("The design that was open at the last exit cannot be "
                                       "opened again; the cut list's stone is shown.\n\n%1")
                                        .arg(QString::fromStdString(notice))
                                        .toStdString(),
                                    true);
        });
    }
}

MainWindow::~MainWindow() {
    // Without "on top" the render window is a window of its own, not one of ours.
    if (renderWindow_ && !renderWindow_->parent())
        delete renderWindow_;
}

void MainWindow::BuildMenus() {
    AppSettings& s = session_.Settings();
    QMenu* file = menuBar()->addMenu(tr("File(&F)"));
    QAction* open = file->addAction(tr("Open Design... (&O)"), this, &MainWindow::ChooseDesign);
    open->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_O));
    recentMenu_ = file->addMenu(tr("Recent Designs (&E)"));
    connect(recentMenu_, &QMenu::aboutToShow, this, &MainWindow::FillRecentMenu);
    FillRecentMenu();
    file->addSeparator();
    QAction* render = file->addAction(tr("Ray-Trace (&R)"), this, &MainWindow::RequestRender);
    render->setShortcuts({QKeySequence(Qt::Key_F5), QKeySequence(Qt::CTRL | Qt::Key_R)});
    QAction* abort =
        file->addAction(tr("Abort Rendering (&A)"), this, [this] { session_.Client().Busy(); });
    abort->setShortcut(QKeySequence(Qt::Key_Escape));
    file->addSeparator();
    QAction* exit = file->addAction(tr("Exit (&X)"), this, &QWidget::close);
    exit->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Q));

    QMenu* view = menuBar()->addMenu(tr("View(&V)"));
    showTitle_ = view->addAction(tr("Show Title (&T)"));
    showTitle_->setCheckable(true);
    showTitle_->setChecked(s.showTitleWindow != 0);
    connect(showTitle_, &QAction::toggled, this, [this](bool on) {
        session_.Settings().showTitleWindow = on;
        session_.Commit();
    });
    topMost_ = view->addAction(tr("RenderWnd As TopMost (&R)"));
    topMost_->setCheckable(true);
    topMost_->setChecked(s.renderWindowTopMost != 0);
    connect(topMost_, &QAction::toggled, this, [this](bool on) {
        session_.Settings().renderWindowTopMost = on;
        session_.Commit();
    });
    view->addSeparator();
    designWindowAction_ =
        view->addAction(tr("Design (&D)..."), this, &MainWindow::ShowDesignWindow);
    view->addAction(tr("Light Performance... (&P)"), this, &MainWindow::ShowLightPerformance);

    QMenu* colours = menuBar()->addMenu(tr("Polygon Color(&C)"));
    const QString names[8] = {tr("White (&W)"),     tr("Red (&R)"),    tr("Green (&G)"),
                              tr("Blue (&B)"),      tr("Yellow (&Y)"), tr("Purple (&P)"),
                              tr("Chocolate (&C)"), tr("Orange (&O)")};
    auto* group = new QActionGroup(this);
    for (int i = 0; i < 8; ++i) {
        QAction* action = colours->addAction(names[i]);
        action->setCheckable(true);
        action->setChecked(s.polygonColour == i);
        group->addAction(action);
        polygonColourActions_[i] = action;
        connect(action, &QAction::triggered, this, [this, i] {
            if (session_.Client().Busy()) {
                const int shown = session_.Settings().polygonColour;
                if (IsPolygonColourIndex(shown))
                    polygonColourActions_[shown]->setChecked(true);
                return;
            }
            session_.Settings().polygonColour = i;
            session_.Commit();
            session_.Client().Post(kRedrawPreview);
        });
    }

    QMenu* settings = menuBar()->addMenu(tr("Settings(&S)"));
    settings->addAction(tr("BackColor / Light Volume (&L)"), this, [this] {
        if (session_.Client().Busy())
            return;
        BackColorLightDialog dialog(session_.Settings(), session_.Prompts(), this);
        ApplySettingWindow(dialog, false);
    });
    settings->addAction(tr("Size (&Z)"), this, [this] {
        if (session_.Client().Busy(kNowRenderingSize))
            return;
        SizeDialog dialog(session_.Settings(), session_.Prompts(), this);
        ApplySettingWindow(dialog, false);
    });
    settings->addAction(tr("Transformable Models (&V)"), this, [this] {
        if (session_.Client().Busy())
            return;
        TransformableModelsDialog dialog(session_.Settings(), session_.Prompts(), this);
        ApplySettingWindow(dialog,
                           TransformableModelsDialog::IsTransformable(session_.Settings().model));
    });
    settings->addAction(tr("General Settings (&S)"), this, [this] {
        if (session_.Client().Busy())
            return;
        GeneralSettingsDialog dialog(session_.Settings(), session_.Prompts(), this);
        ApplySettingWindow(dialog, false);
    });
    QMenu* shot = menuBar()->addMenu(tr("Screen Shot(&T)"));
    QAction* save =
        shot->addAction(tr("Save (&S)"), this, [this] { flows_->SaveScreenShot(this); });
    save->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_S));
    shot->addAction(tr("Restore Position (&R)"), this, [this] { flows_->RestorePosition(); });
    QMenu* capture = menuBar()->addMenu(tr("Automatic Screen Capture(&P)"));
    capture->addAction(tr("New (&N)"), this, [this] { flows_->NewCapture(); });
    capture->addAction(tr("Resume (&R)"), this, [this] { flows_->ResumeCapture(); });
    capture->addAction(tr("Make Animated-GIF (&A)"), this, [this] { flows_->MakeAnimatedGif(); });
    QMenu* about = menuBar()->addMenu(tr("About(&A)"));
    about->addAction(tr("Version Info. (&V)"), this, &MainWindow::ShowVersion);
}

QWidget* MainWindow::BuildControls() {
    auto* column = new QWidget(this);
    column->setFixedWidth(420);
    auto* layout = new QVBoxLayout(column);

    auto* stoneBox = new QGroupBox(tr("Stone"), column);
    auto* grid = new QGridLayout(stoneBox);
    stoneList_ = new QComboBox(stoneBox);
    cutList_ = new QComboBox(stoneBox);
    colourList_ = new QComboBox(stoneBox);
    cutList_->setMaxVisibleItems(kCutListSize + 1);  // the cuts and an open design
    indexField_ = new QLineEdit(stoneBox);
    indexField_->setMaxLength(8);
    grid->addWidget(new QLabel(tr("stone :"), stoneBox), 0, 0);
    grid->addWidget(stoneList_, 0, 1);
    grid->addWidget(new QLabel(tr("cut   :"), stoneBox), 1, 0);
    grid->addWidget(cutList_, 1, 1);
    grid->addWidget(new QLabel(tr("color :"), stoneBox), 2, 0);
    grid->addWidget(colourList_, 2, 1);
    grid->addWidget(new QLabel(tr("ref.idx :"), stoneBox), 3, 0);
    grid->addWidget(indexField_, 3, 1);
    layout->addWidget(stoneBox);

    // The ten hold-to-rotate buttons: a press starts the turn, the release stops it.
    auto* turnBox = new QGroupBox(tr("Rotation"), column);
    auto* turns = new QGridLayout(turnBox);
    struct Turn {
        int id;
        const char* label;
        const char* tip;
    };
    const Turn buttons[10] = {
        {1006, "→", QT_TR_NOOP("Turn around the Y axis")},
        {1007, "←", QT_TR_NOOP("Turn around the Y axis, the other way")},
        {1008, "↑", QT_TR_NOOP("Turn around the X axis")},
        {1009, "↓", QT_TR_NOOP("Turn around the X axis, the other way")},
        {1010, "↻", QT_TR_NOOP("Turn around the Z axis")},
        {1011, "↺", QT_TR_NOOP("Turn around the Z axis, the other way")},
        {1012, "☀→", QT_TR_NOOP("Turn the light ray around the Y axis")},
        {1013, "☀←", QT_TR_NOOP("Turn the light ray around the Y axis, the other way")},
        {1014, "☀↑", QT_TR_NOOP("Turn the light ray around the X axis")},
        {1015, "☀↓", QT_TR_NOOP("Turn the light ray around the X axis, the other way")},
    };
    for (int i = 0; i < 10; ++i) {
        auto* button = new QPushButton(QString::fromUtf8(buttons[i].label), turnBox);
        button->setToolTip(tr(buttons[i].tip));
        button->setFocusPolicy(Qt::NoFocus);
        button->setAutoRepeat(false);
        const int id = buttons[i].id;
        connect(button, &QPushButton::pressed, this,
                [this, id] { session_.Client().Post(kAnimateRotation, id); });
        connect(button, &QPushButton::released, this, [this] {
            session_.Client().PostStop();
            setFocus();
        });
        turns->addWidget(button, i / 6, i % 6);
    }
    auto* reset = new QPushButton(tr("Reset View"), turnBox);
    reset->setFocusPolicy(Qt::NoFocus);
    connect(reset, &QPushButton::clicked, this, [this] { session_.Client().ResetOrientation(); });
    turns->addWidget(reset, 1, 4, 1, 2);
    objectWise_ = new QCheckBox(tr("Object-wise"), turnBox);
    incremental_ = new QCheckBox(tr("Incremental view"), turnBox);
    objectWise_->setChecked(session_.Settings().ObjectWiseMode != 0);
    incremental_->setChecked(session_.Settings().IncrementalViewMode != 0);
    connect(objectWise_, &QCheckBox::toggled, this, [this](bool on) { SetPanelToggle(true, on); });
    connect(incremental_, &QCheckBox::toggled, this,
            [this](bool on) { SetPanelToggle(false, on); });
    turns->addWidget(objectWise_, 2, 0, 1, 3);
    turns->addWidget(incremental_, 2, 3, 1, 3);
    layout->addWidget(turnBox);

    auto* renderRow = new QHBoxLayout;
    renderButton_ = new QPushButton(tr("Ray-Trace"), column);
    renderButton_->setDefault(true);
    hqButton_ = new QPushButton(tr("HQ"), column);
    hqButton_->setCheckable(true);
    hqButton_->setChecked(session_.Settings().highQuality != 0);
    hqButton_->setToolTip(tr("High quality: render at twice the size and shrink"));
    hqButton_->setObjectName("hq");
    // Checked must be plain to see at a glance, in every style.
    hqButton_->setStyleSheet(
        "QPushButton#hq:checked { background-color: #2e7d32; color: white; font-weight: bold; "
        "border: 1px solid #1b5e20; border-radius: 3px; padding: 4px; }");
    progressButton_ = new QPushButton(column);
    progressButton_->setToolTip(tr("Click to abort the render"));
    // The abort button keeps its place when hidden: nothing moves under the pointer when a
    // render ends, so a click meant for HQ lands on HQ.
    QSizePolicy keep = progressButton_->sizePolicy();
    keep.setRetainSizeWhenHidden(true);
    progressButton_->setSizePolicy(keep);
    progressButton_->hide();
    renderRow->addWidget(renderButton_, 2);
    renderRow->addWidget(hqButton_, 1);
    renderRow->addWidget(progressButton_, 1);
    layout->addLayout(renderRow);
    connect(renderButton_, &QPushButton::clicked, this, &MainWindow::RequestRender);
    connect(hqButton_, &QPushButton::toggled, this, [this](bool on) {
        session_.Settings().highQuality = on;
        session_.Commit();
    });
    connect(progressButton_, &QPushButton::clicked, this,
            [this] { session_.Client().ConfirmAbort(kNowRendering); });

    auto* infoRow = new QHBoxLayout;
    info_ = new QLabel(column);
    info_->setTextFormat(Qt::RichText);
    info_->setFont(InfoFont());
    info_->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    // The help scrolls rather than pushing the window taller than a small screen.
    auto* infoScroll = new QScrollArea(column);
    infoScroll->setWidget(info_);
    infoScroll->setWidgetResizable(true);
    infoScroll->setFrameShape(QFrame::NoFrame);
    lightArea_ = new LightArea(column);
    infoRow->addWidget(infoScroll, 1);
    infoRow->addWidget(lightArea_, 0, Qt::AlignTop);
    layout->addLayout(infoRow, 1);
    choice_ = new QLabel(column);
    choice_->setWordWrap(true);
    layout->addWidget(choice_);

    connect(stoneList_, qOverload<int>(&QComboBox::activated), this, &MainWindow::SelectStone);
    connect(cutList_, qOverload<int>(&QComboBox::activated), this, &MainWindow::SelectCut);
    connect(colourList_, qOverload<int>(&QComboBox::activated), this, &MainWindow::SelectColour);
    connect(indexField_, &QLineEdit::editingFinished, this, &MainWindow::ReadBackIndex);
    connect(indexField_, &QLineEdit::returnPressed, this, &MainWindow::RequestRender);
    return column;
}

void MainWindow::FillLists() {
    for (const StoneRecord& stone : Stones())
        stoneList_->addItem(NameOf(stone.english, stone.japanese));
    for (const CutName& cut : CutNames())
        cutList_->addItem(NameOf(cut.english, cut.japanese));
    for (const ColourRecord& colour : Colours())
        colourList_->addItem(NameOf(colour.english, colour.japanese));
}

void MainWindow::ShowChoice() {
    const AppSettings& s = session_.Settings();
    ShowDesign();
    // A value no list holds (from a damaged settings file) shows no entry rather than a
    // wrong one; the render refuses it with a message.
    stoneList_->setCurrentIndex(IsStoneIndex(s.stone) ? s.stone : -1);
    cutList_->setCurrentIndex(session_.DesignShown()  ? kDesignEntry
                              : HasGenerator(s.model) ? s.model
                                                      : -1);
    colourList_->setCurrentIndex(IsColourIndex(s.stoneColour) ? s.stoneColour : -1);
    indexField_->setText(IndexText(s.refractiveIndex));
    choice_->setText(QString("%1 %2   %3 %4   %5 %6   %7 %8")
                         .arg(tr("stone :"), stoneList_->currentText(), tr("cut   :"),
                              cutList_->currentText(), tr("color :"), colourList_->currentText(),
                              tr("ref.idx :"), IndexText(s.refractiveIndex)));
}

void MainWindow::UpdateInfo() {
    const bool objectWise = session_.Settings().ObjectWiseMode != 0;
    QStringList lines;
    lines << QString("<b>%1</b>").arg(kProductName) << tr(kVersion) << QString();
    if (objectWise) {
        lines << tr("cursor/z,x key") << tr("( object-wise )") << tr("rotation around local-")
              << tr("up/down   : X-axis") << tr("right/left: Y-axis") << tr("z / x     : Z-axis")
              << tr("[ light ray ]") << tr("shift + cursor key") << tr("rotation around-")
              << tr("sft + up/down   : local X-axis") << tr("    + right/left: global Y-axis");
    } else {
        lines << tr("[ view point ]") << tr("rotation around -") << tr("local X-axis : up/down")
              << tr("local Y-axis : right/left") << tr("local Z-axis : z / x")
              << tr("[ light ray ]") << tr("local X-axis : shift + up/down")
              << tr("global Y-axis : shift + right/left");
    }
    lines << QString() << tr("refractive index*") << tr("diamond  : 2.42")
          << tr("vorane   : 1.70 ~1.89") << tr("sapphire : 1.76 ~1.77")
          << tr("topaz    : 1.62 ~1.63") << tr("emerald  : 1.57 ~1.58")
          << tr("crystal  : 1.54 ~1.55") << tr("glass    : 1.42 ~1.56") << tr("*refractive index =")
          << tr("{ speed of light in a vacuum") << tr(" / speed of light in medium }");
    QStringList escaped;
    for (const QString& line : lines)
        escaped << (line.startsWith("<b>") ? line : line.toHtmlEscaped().replace(' ', "&nbsp;"));
    info_->setText(escaped.join("<br>"));
}

void MainWindow::ConnectWorker() {
    QtWorkerSink& sink = session_.Sink();
    connect(
        &sink, &QtWorkerSink::previewReady, this,
        [this](const QImage& picture, int size, double x, double y, double z, int target, bool) {
            // A refresh for a new panel size keeps a rendered picture in view.
            const bool keepRender = previewsKeepingRender_ > 0;
            if (keepRender)
                --previewsKeepingRender_;
            panel_->ShowPreview(picture, size, keepRender);
            lightArea_->SetLight(x, y, z);
            lightArea_->SetTarget(target);
        });
    connect(&sink, &QtWorkerSink::renderStarted, this, [this] {
        progress_ = 0;
        progressButton_->setText(QString::asprintf("%d %%", 0));
        progressButton_->show();
        const AppSettings& s = session_.Settings();
        if (s.separateRenderWindow)
            renderWindow_->Prepare(s.imageSize, s.renderWindowTopMost != 0);
        else
            panel_->BeginRender(s.imageSize);
    });
    connect(&sink, &QtWorkerSink::renderProgress, this, [this](int percent) {
        progress_ = percent;
        progressButton_->setText(QString::asprintf("%d %%", percent));
    });
    connect(&sink, &QtWorkerSink::rowsRendered, this,
            [this](const QImage& strip, int first, int size) {
                // Without the row-by-row option the picture appears once it is complete.
                const bool rowByRow = session_.Settings().rowByRow != 0;
                if (session_.Settings().separateRenderWindow)
                    renderWindow_->AddRows(strip, first, size, rowByRow);
                else
                    panel_->AddRows(strip, first, size, rowByRow);
            });
    connect(&sink, &QtWorkerSink::renderFinished, this, [this] {
        session_.Client().RenderFinished();
        progressButton_->hide();
        if (panelRefreshPending_) {
            panelRefreshPending_ = false;
            RefreshPanel();
        }
        panel_->update();
        renderWindow_->update();
    });
    connect(panel_, &ViewPanel::pressed, this, [this](QPoint p) {
        if (!session_.Client().BeginDrag(1, p.x(), p.y()))
            setFocus();
    });
    connect(panel_, &ViewPanel::moved, this,
            [this](QPoint p) { session_.Client().Drag(p.x(), p.y()); });
    connect(panel_, &ViewPanel::released, this, [this] { session_.Client().EndDrag(); });
    connect(lightArea_, &LightArea::pressed, this,
            [this](QPoint p) { session_.Client().BeginDrag(2, p.x(), p.y()); });
    connect(lightArea_, &LightArea::moved, this,
            [this](QPoint p) { session_.Client().Drag(p.x(), p.y()); });
    connect(lightArea_, &LightArea::released, this, [this] { session_.Client().EndDrag(); });
    connect(panel_, &ViewPanel::resized, this, [this](QSize size) {
        session_.Scene().SetPanel({size.width(), size.height()});
        // A render's poll would swallow the refresh: it waits for the render to end.
        if (session_.Client().Rendering())
            panelRefreshPending_ = true;
        else
            RefreshPanel();
    });
}

void MainWindow::RefreshPanel() {
    if (panel_->ShowsRender())
        ++previewsKeepingRender_;
    session_.Client().Post(kInvalidateViewPanel);
}

void MainWindow::ShowToggles() {
    const AppSettings& s = session_.Settings();
    const QSignalBlocker a(objectWise_), b(incremental_), c(hqButton_);
    hqButton_->setChecked(s.highQuality != 0);
    objectWise_->setChecked(s.ObjectWiseMode != 0);
    incremental_->setChecked(s.IncrementalViewMode != 0);
    panel_->SetTrimmingFrame(s.showTrimmingFrame != 0 && s.trim.on != 0, s.trim.top, s.trim.bottom,
                             s.trim.left, s.trim.right);
    lightArea_->SetViewPointPicture(s.targetPicture != 0);
    UpdateInfo();
}

void MainWindow::SelectStone(int index) {
    if (session_.Client().Busy()) {
        ShowChoice();  // the list goes back to what the worker has
        return;
    }
    session_.Keyboard().Pause();
    StoneChoice choice;
    if (kirameki::SelectStone(choice, index)) {
        AppSettings& s = session_.Settings();
        s.stone = choice.stone;
        s.model = choice.model;
        s.stoneColour = choice.colour;
        s.refractiveIndex = choice.refractiveIndex;
        session_.Commit();
        session_.Client().Post(kBuildModel);
    }
    ShowChoice();
    session_.Keyboard().Resume();
}

void MainWindow::SelectCut(int index) {
    if (session_.Client().Busy()) {
        ShowChoice();
        return;
    }
    session_.Keyboard().Pause();
    if (index == kDesignEntry && session_.Design()) {
        session_.ShowDesign(true);
        session_.Client().Post(kBuildModel);
    } else if (HasGenerator(index)) {
        session_.ShowDesign(false);
        session_.Settings().model = index;
        session_.Commit();
        session_.Client().Post(kBuildModel);
    }
    ShowChoice();  // the separator line sets the list back to the current cut
    session_.Keyboard().Resume();
}

void MainWindow::SelectColour(int index) {
    session_.Keyboard().Pause();
    if (IsColourIndex(index)) {
        session_.Settings().stoneColour = index;
        session_.Commit();
    }
    ShowChoice();
    session_.Keyboard().Resume();
}

void MainWindow::ReadBackIndex() {
    const double value = LeadingNumber(indexField_->text().toStdString());
    session_.Settings().refractiveIndex = ClampRefractiveIndex(value);
    session_.Commit();
    ShowChoice();
}

bool MainWindow::CheckRefractiveIndex() {
    const double value = LeadingNumber(indexField_->text().toStdString());
    session_.Settings().refractiveIndex = value;
    session_.Commit();
    if (!RefractiveIndexInRange(value)) {
        session_.Prompts().Tell(std::string(kRefractiveIndexRangeMessage), true);
        indexField_->setFocus();
        return false;
    }
    return true;
}

void MainWindow::RequestRender() {
    if (session_.Client().Busy())
        return;
    if (!CheckRefractiveIndex())
        return;
    session_.Commit();
    session_.Client().Render();
}

void MainWindow::SetPanelToggle(bool objectWise, bool on) {
    if (session_.Client().Busy()) {
        ShowToggles();  // the boxes go back to what the worker has
        return;
    }
    AppSettings& s = session_.Settings();
    // The two toggles exclude each other; both may be off.
    if (objectWise) {
        s.ObjectWiseMode = on;
        if (on)
            s.IncrementalViewMode = 0;
    } else {
        s.IncrementalViewMode = on;
        if (on)
            s.ObjectWiseMode = 0;
    }
    const QSignalBlocker a(objectWise_), b(incremental_);
    objectWise_->setChecked(s.ObjectWiseMode != 0);
    incremental_->setChecked(s.IncrementalViewMode != 0);
    session_.Commit();
    UpdateInfo();
    session_.Client().Post(kRedrawPreview);
}

void MainWindow::ApplySettingWindow(SettingDialog& dialog, bool rebuild) {
    session_.Keyboard().Pause();
    const bool accepted = dialog.exec() == QDialog::Accepted;
    session_.Keyboard().Resume();
    if (!accepted)
        return;
    session_.Settings() = dialog.Result();
    session_.Persist();  // confirmed with OK: on disk now, not only at exit
    ShowToggles();
    // A rebuild redraws too; the other settings change only the look.
    session_.Client().Post(rebuild ? kBuildModel : kRedrawPreview);
}

void MainWindow::ShowDesign() {
    const std::shared_ptr<const kirameki::OpenDesign>& design = session_.Design();
    const QSignalBlocker block(cutList_);
    const QString title = design ? DesignTitle(*design) : QString();
    if (!design) {
        while (cutList_->count() > kDesignEntry)
            cutList_->removeItem(kDesignEntry);
    } else if (cutList_->count() == kDesignEntry) {
        cutList_->addItem(title);
    } else {
        cutList_->setItemText(kDesignEntry, title);
    }
    if (design)
        cutList_->setItemData(kDesignEntry, QString::fromStdString(design->path), Qt::ToolTipRole);
    designWindowAction_->setEnabled(design != nullptr);
    if (designWindow_)
        designWindow_->SetDesign(design);
}

void MainWindow::ChooseDesign() {
    if (session_.Client().Busy())
        return;
    const std::vector<std::string>& recent = session_.Companion().recentDesigns;
    const QString folder = recent.empty()
                               ? QDir::homePath()
                               : QFileInfo(QString::fromStdString(recent.front())).absolutePath();
    const QString path = files_.Choose(this, false, tr("Open Design"),
                                       {tr("GemCad Design (*.asc)"), tr("All Files (*)")}, folder,
                                       {}, nullptr, "asc");
    if (!path.isEmpty())
        OpenDesign(path);
}

bool MainWindow::OpenDesign(const QString& path) {
    if (session_.Client().Busy())
        return false;
    const QString absolute = QFileInfo(path).absoluteFilePath();
    auto design = std::make_shared<kirameki::OpenDesign>();
    std::string error;
    if (!OpenDesignFile(absolute.toStdString(), *design, error)) {
        session_.Prompts().Tell(tr("The design could not be opened.\n\n%1")
                                    .arg(QString::fromStdString(error))
                                    .toStdString(),
                                true);
        return false;
    }
    session_.Keyboard().Pause();
    AppSettings& s = session_.Settings();
    const double index = design->design.index;
    if (RefractiveIndexInRange(index) && IndexText(index) != IndexText(s.refractiveIndex) &&
        session_.Prompts().AskYesNo(tr("This design was made for the refractive index %1.\n\n"
                                       "Use it instead of %2?")
                                        .arg(IndexText(index), IndexText(s.refractiveIndex))
                                        .toStdString(),
                                    DefaultAnswer::kYes))
        s.refractiveIndex = index;
    session_.Companion().RememberDesign(absolute.toStdString());
    session_.SetDesign(std::move(design), true);
    session_.Commit();
    session_.Client().Post(kBuildModel);
    ShowChoice();
    session_.Keyboard().Resume();
    return true;
}

void MainWindow::OpenRecentDesign(const QString& path) {
    if (QFileInfo::exists(path)) {
        OpenDesign(path);
        return;
    }
    session_.Companion().ForgetDesign(path.toStdString());
    std::string error;
    session_.SaveCompanion(error);
    session_.Prompts().Tell(
        tr("The design %1 is no longer there; it was taken off the list.").arg(path).toStdString(),
        true);
}

void MainWindow::FillRecentMenu() {
    recentMenu_->clear();
    const std::vector<std::string> recent = session_.Companion().recentDesigns;
    for (std::size_t i = 0; i < recent.size(); ++i) {
        const QString path = QString::fromStdString(recent[i]);
        QAction* action =
            recentMenu_->addAction(QString("&%1 %2").arg(i + 1).arg(QFileInfo(path).fileName()),
                                   this, [this, path] { OpenRecentDesign(path); });
        action->setToolTip(path);
        action->setStatusTip(path);
    }
    recentMenu_->setToolTipsVisible(true);
    recentMenu_->setEnabled(!recent.empty());
}

void MainWindow::ShowDesignWindow() {
    if (!session_.Design())
        return;
    if (!designWindow_) {
        designWindow_ = new DesignWindow(
            [this](QWidget* owner, const QString& suggested) {
                return files_.Choose(owner, true, tr("Save Cutting Sheet"), {tr("PDF (*.pdf)")},
                                     QFileInfo(suggested).absolutePath(), suggested, nullptr,
                                     "pdf");
            },
            session_.Prompts(), this);
    }
    designWindow_->SetDesign(session_.Design());
    designWindow_->show();
    designWindow_->raise();
    designWindow_->activateWindow();
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
    if (!DraggedFile(event->mimeData()).isEmpty())
        event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent* event) {
    const QString path = DraggedFile(event->mimeData());
    if (path.isEmpty())
        return;
    event->acceptProposedAction();
    // The drag's source waits until the drop returns: the design opens after it.
    QTimer::singleShot(0, this, [this, path] { OpenDesign(path); });
}

LightPerformanceWindow& MainWindow::LightPerformance() {
    if (!lightPerformance_)
        lightPerformance_ = new LightPerformanceWindow(
            session_, [this] { return CheckRefractiveIndex(); }, this);
    return *lightPerformance_;
}

void MainWindow::ShowLightPerformance() {
    LightPerformanceWindow& window = LightPerformance();
    window.show();
    window.raise();
    window.activateWindow();
}

void MainWindow::ShowVersion() {
    QMessageBox::about(this, tr("Version Info."),
                       QString("<b>%1</b><br>%2<br><br>%3")
                           .arg(kProductName, tr(kVersion),
                                tr("A viewer and ray-tracing renderer for cut gemstones.")));
}

bool MainWindow::KeyEvent(QKeyEvent* event, bool down) {
    if (event->isAutoRepeat())
        return true;
    KeyStateTable& keys = session_.Keys();
    switch (event->key()) {
        case Qt::Key_Left:
            keys.SetDown(Key::kLeft, down);
            return true;
        case Qt::Key_Right:
            keys.SetDown(Key::kRight, down);
            return true;
        case Qt::Key_Up:
            keys.SetDown(Key::kUp, down);
            return true;
        case Qt::Key_Down:
            keys.SetDown(Key::kDown, down);
            return true;
        case Qt::Key_X:
            keys.SetDown(Key::kX, down);
            return true;
        case Qt::Key_Z:
            keys.SetDown(Key::kZ, down);
            return true;
        case Qt::Key_Shift:
            keys.SetDown(Key::kShift, down);
            return true;
        case Qt::Key_L:
            keys.SetDown(Key::kL, down);
            return true;
        case Qt::Key_D:
            keys.SetDown(Key::kD, down);
            return true;
        case Qt::Key_T:
            keys.SetDown(Key::kT, down);
            return true;
        default:
            return false;
    }
}

bool MainWindow::KeysTurnTheStone() const {
    // Only over the viewer's own windows, with no menu or list open and no edit box taking
    // the typing.
    const QWidget* active = QApplication::activeWindow();
    if (active != this && active != renderWindow_)
        return false;
    if (QApplication::activePopupWidget())
        return false;
    return !TakesKeys(QApplication::focusWidget());
}

bool MainWindow::eventFilter(QObject* watched, QEvent* event) {
    // Presses turn the stone only when no widget wants the key for itself; releases always
    // count, so that a key held before the focus moved does not stay down. The event still
    // goes on to the widget that has the focus.
    if (event->type() == QEvent::KeyRelease ||
        (event->type() == QEvent::KeyPress && KeysTurnTheStone()))
        KeyEvent(static_cast<QKeyEvent*>(event), event->type() == QEvent::KeyPress);
    return QMainWindow::eventFilter(watched, event);
}

void MainWindow::changeEvent(QEvent* event) {
    // Keys count while the application is active: leaving it lets every key go.
    if (event->type() == QEvent::ActivationChange && !isActiveWindow())
        session_.Keys().ReleaseAll();
    QMainWindow::changeEvent(event);
}

void MainWindow::Terminate() {
    terminating_ = true;
    close();
}

void MainWindow::closeEvent(QCloseEvent* event) {
    ReadBackIndex();
    if (terminating_) {
        session_.Client().AbortAndWait();
    } else if (!session_.Client().MayClose()) {
        event->ignore();
        return;
    }
    session_.Stop();
    std::string error;
    if (!session_.SaveSettings(error)) {
        // A signal asks the program to go: a modal box would keep it waiting for nobody.
        if (terminating_)
            std::fprintf(stderr, "kirameki: the settings were not saved: %s\n", error.c_str());
        else
            session_.Prompts().Tell(
                QCoreApplication::translate("Messages", messages::kFailedToOpenFile).toStdString() +
                    "\n\n" + error,
                true);
    }
    if (!session_.SaveCompanion(error))
        std::fprintf(stderr, "kirameki: %s\n", error.c_str());
    renderWindow_->close();
    event->accept();
}

}  // namespace kirameki
