// What a user of the viewer sees happen, offscreen through the real worker: records keep
// what they must, actions during a render follow the busy rule, the light turns about the
// right axes, the files get the right names and places.
#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QDeadlineTimer>
#include <QFontDatabase>
#include <QFontInfo>
#include <QImageReader>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTextCursor>
#include <QTextDocument>
#include <QtTest>
#include <cmath>
#include <functional>

#include "app/light_area.h"
#include "app/qt_prompter.h"
#include "app/render_window.h"
#include "app/view_panel.h"
#include "output/capture_info.h"
#include "output/messages.h"
#include "viewer_harness.h"

namespace kirameki {

namespace {

constexpr int kScissorsCut = 8;  // no eight-fold symmetry: every eighth of a turn differs

QPushButton& ButtonNamed(MainWindow& window, const QString& text) {
    for (QPushButton* button : window.findChildren<QPushButton*>())
        if (button->text() == text)
            return *button;
    qFatal("no button %s", qPrintable(text));
}

bool Near(Vec3 a, Vec3 b, double tolerance = 1e-9) {
    return std::abs(a.x - b.x) < tolerance && std::abs(a.y - b.y) < tolerance &&
           std::abs(a.z - b.z) < tolerance;
}

bool SameFrame(const OrientationFrame& a, const OrientationFrame& b) {
    return Near(a.AxisA, b.AxisA) && Near(a.AxisB, b.AxisB);
}

struct Record {
    AppSettings settings;
    ViewState view;
    CaptureState capture;
};

Record ReadRecord(const QString& path) {
    Record r;
    SceneState scene{r.settings, r.view, r.capture};
    if (!ReadCaptureInfo(path.toStdString(), scene, false).opened)
        qFatal("cannot read %s", qPrintable(path));
    return r;
}

QByteArray Bytes(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QString Frame(const QString& stem, int index, int count) {
    return QString::fromStdString(FrameFileName(stem.toStdString(), index, count));
}

// A render long enough to act during it.
void SlowRender(AppSettings& s) {
    s.imageSize = 512;
    s.highQuality = 1;
    s.recursionDepth = 20;
}

// The spy counts on the worker thread; the window takes the end when its event arrives.
void Render(Viewer& v) {
    QSignalSpy finished(&v.session->Sink(), &QtWorkerSink::renderFinished);
    v.window->RequestRender();
    QTRY_VERIFY_WITH_TIMEOUT(finished.count() == 1, 60000);
    QTRY_VERIFY(!v.session->Client().Rendering());
}

// Calls the step until the worker takes it (it refuses while the previous one runs).
// QTRY_VERIFY would call it once more after success, so this waits by hand.
bool Taken(const std::function<bool()>& step) {
    QDeadlineTimer deadline(10000);
    while (!step()) {
        if (deadline.hasExpired())
            return false;
        QTest::qWait(5);
    }
    return true;
}

// Drags to the point once the worker has taken the previous step (drags are throttled).
void DragTo(Viewer& v, int x, int y) {
    WorkerClient& client = v.session->Client();
    QVERIFY(Taken([&] { return client.Drag(x, y); }));
    QVERIFY(Taken([&] { return client.Drag(x, y); }));  // the same point again turns nothing
}

// Waits until the worker is free for an interactive step again.
void WaitIdle(Viewer& v) {
    WorkerClient& client = v.session->Client();
    QVERIFY(Taken([&] { return client.BeginDrag(2, 0, 0); }));
    client.EndDrag();
}

// The light frame's own X axis, in view coordinates.
Vec3 LightX(Viewer& v) {
    return ApplyFrame(v.session->Scene().ShownView().light, {1.0, 0.0, 0.0});
}

bool Uniform(const QImage& image) {
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (image.pixel(x, y) != image.pixel(0, 0))
                return false;
    return true;
}

}  // namespace

class ViewerBehaviourTest : public QObject {
    Q_OBJECT

  private:
    QTemporaryDir dir_;

    QString Folder(const QString& name) {
        const QString folder = dir_.path() + "/" + name;
        QDir().mkpath(folder);
        return folder;
    }

  private slots:
    // An aborted capture keeps the orientation of frame 0, so its resume renders exactly the
    // frames an unbroken run renders; a complete file offers the existence check with Yes.
    void AbortedCaptureResumesTheSameTurn() {
        const QString folder = Folder("turn");
        Viewer v(folder, [](AppSettings& s) {
            s.model = kScissorsCut;
            s.imageSize = 120;
            s.captureFrames = 8;
        });
        ModalAnswers answers;
        const ViewState start = v.session->Scene().ShownView();
        v.files.answers << folder + "/Whole.sqi";
        v.window->Flows().NewCapture();
        QCOMPARE(FramesOnDisk(folder + "/Whole", 8), 8);

        // Abort once frame 2 is under way.
        QMetaObject::Connection abortAt2 =
            connect(&v.session->Sink(), &QtWorkerSink::captureProgress, this, [](int frame, int) {
                if (frame != 2)
                    return;
                if (auto* window = qobject_cast<ProgressWindow*>(QApplication::activeModalWidget()))
                    emit window->abortRequested();
            });
        v.files.answers << folder + "/Cut.sqi";
        v.window->Flows().NewCapture();
        disconnect(abortAt2);
        QCOMPARE(v.prompter.told.last(), QString(messages::kCapturingAborted));
        const Record aborted = ReadRecord(folder + "/Cut.sqi");
        QVERIFY(aborted.capture.framesCaptured >= 2 && aborted.capture.framesCaptured < 8);
        QVERIFY(SameFrame(aborted.view.object, start.object));
        QVERIFY(SameFrame(aborted.view.view, start.view));

        v.files.answers << folder + "/Cut.sqi";
        v.window->Flows().ResumeCapture();
        QVERIFY(v.prompter.told.last().startsWith("All frames have been captured."));
        for (int k = 0; k < 8; ++k)
            QVERIFY2(Bytes(Frame(folder + "/Cut", k, 8)) == Bytes(Frame(folder + "/Whole", k, 8)),
                     qPrintable(QString("frame %1 differs").arg(k)));
        QVERIFY(SameFrame(ReadRecord(folder + "/Cut.sqi").view.object, start.object));

        v.files.answers << folder + "/Whole.sqi";
        v.window->Flows().ResumeCapture();
        QCOMPARE(v.prompter.asked.last(), QString(messages::kAlreadyComplete));
        QCOMPARE(v.prompter.presets.last(), DefaultAnswer::kYes);
    }

    // While a render runs, every action that would give the worker work asks the busy
    // question and is not carried out; a resize waits and redraws when the render ends.
    void ActionsDuringARenderFollowTheBusyRule() {
        Viewer v(Folder("busy"), [](AppSettings& s) { SlowRender(s); });
        MainWindow& w = *v.window;
        ModalAnswers answers;
        const AppSettings before = v.session->Settings();
        QSignalSpy finished(&v.session->Sink(), &QtWorkerSink::renderFinished);
        QSignalSpy previews(&v.session->Sink(), &QtWorkerSink::previewReady);
        w.RequestRender();
        emit w.StoneList().activated(4);
        emit w.CutList().activated(kScissorsCut);
        w.PolygonColourAction(5).trigger();
        w.ObjectWiseBox().click();
        w.IncrementalBox().click();
        MenuAction(w, "General Settings (&S)").trigger();
        MenuAction(w, "Transformable Models (&V)").trigger();
        MenuAction(w, "BackColor / Light Volume (&L)").trigger();
        const QSize panel = w.Panel().size();
        previews.clear();
        w.resize(w.width() + 40, w.height() + 30);
        QTRY_VERIFY(w.Panel().size() != panel);
        QVERIFY(v.session->Client().Rendering());
        QCOMPARE(previews.count(), 0);
        QCOMPARE(v.prompter.asked, QStringList(8, "Now rendering, Abort current process?"));
        QCOMPARE(w.StoneList().currentIndex(), before.stone);
        QCOMPARE(w.CutList().currentIndex(), before.model);
        QVERIFY(w.PolygonColourAction(before.polygonColour).isChecked());
        QVERIFY(!w.ObjectWiseBox().isChecked());
        QVERIFY(!w.IncrementalBox().isChecked());
        QVERIFY(SettingsBytes(v.session->Settings()) == SettingsBytes(before));
        QTRY_VERIFY_WITH_TIMEOUT(finished.count() == 1, 60000);
        QTRY_VERIFY(previews.count() >= 1);  // the resize, redrawn now
        QVERIFY(w.Panel().ShowsRender());    // without hiding the picture
        QCOMPARE(v.session->Scene().Settings().model, before.model);
    }

    // The file's extension matches the filter it was written with.
    void ScreenShotNamesFollowTheFilter() {
        const QString folder = Folder("shots");
        Viewer v(folder, [](AppSettings& s) { s.imageSize = 48; });
        Render(v);
        v.files.answers << folder + "/Bare";
        v.window->Flows().SaveScreenShot(v.window.get());
        QCOMPARE(v.files.suffixes.last(), QString("bmp"));  // the first filter, at first
        QCOMPARE(QImageReader(folder + "/Bare.png").format(), QByteArray("png"));
        QVERIFY(QFile::exists(folder + "/Bare.gpi"));
        QVERIFY(!QFile::exists(folder + "/Bare"));
        v.files.filter = 7;
        v.files.answers << folder + "/Typed.BMP";
        v.window->Flows().SaveScreenShot(v.window.get());
        QCOMPARE(v.files.suffixes.last(), QString("png"));  // the filter remembered last
        QCOMPARE(QImageReader(folder + "/Typed.gif").format(), QByteArray("gif"));
        QVERIFY(!QFile::exists(folder + "/Typed.BMP"));
        v.files.filter = 1;
        v.files.answers << folder + "/Dotted.v2";
        v.window->Flows().SaveScreenShot(v.window.get());
        QCOMPARE(v.files.suffixes.last(), QString("gif"));
        QCOMPARE(QImageReader(folder + "/Dotted.v2.bmp").format(), QByteArray("bmp"));
    }

    // The dialogs open where the last file of their kind was chosen, after a restart too.
    void DialogsOpenInTheFolderUsedLast() {
        const QString folder = Folder("folders");
        const QString shots = Folder("folders/my shots"), caps = Folder("folders/my caps");
        {
            Viewer v(folder, [](AppSettings& s) {
                s.imageSize = 32;
                s.captureFrames = 1;
            });
            ModalAnswers answers;
            Render(v);
            v.files.answers << shots + "/Gem.png";
            v.window->Flows().SaveScreenShot(v.window.get());
            v.files.answers << caps + "/Run.sqi";
            v.window->Flows().NewCapture();
            QCOMPARE(FramesOnDisk(caps + "/Run", 1), 1);
        }
        Viewer v(folder);
        Render(v);
        v.window->Flows().SaveScreenShot(v.window.get());
        v.window->Flows().ResumeCapture();
        v.window->Flows().RestorePosition();
        QCOMPARE(v.files.folders, (QStringList{shots + "/", caps + "/", shots + "/"}));
    }

    // A position record replaces every field it holds, and the window shows it.
    void RestorePositionTakesEveryField() {
        const QString folder = Folder("restore");
        Viewer v(folder, [](AppSettings& s) { s.imageSize = 40; });
        MainWindow& w = *v.window;
        AppSettings saved = v.session->Settings();
        saved.highQuality = 1;
        saved.IncrementalViewMode = 1;
        saved.showTrimmingFrame = 1;
        saved.trim = {2, 3, 4, 5, 1, 0};
        saved.captureFrames = 9;
        ViewState view = InitialViewState();
        CaptureState capture{7, 1, 0};
        std::string error;
        QVERIFY(
            WriteCaptureInfo((folder + "/Saved.gpi").toStdString(), {saved, view, capture}, error));
        QVERIFY(!w.HqButton().isChecked());
        v.files.answers << folder + "/Saved.gpi";
        w.Flows().RestorePosition();
        QVERIFY(w.HqButton().isChecked());
        QVERIFY(w.IncrementalBox().isChecked());
        QVERIFY(w.Panel().TrimmingFrameShown());
        QCOMPARE(v.session->Settings().captureFrames, 9);
        // The counts came along: the next position record carries them.
        Render(v);
        v.files.answers << folder + "/Next.png";
        w.Flows().SaveScreenShot(&w);
        const Record next = ReadRecord(folder + "/Next.gpi");
        QCOMPARE(next.capture.framesCaptured, 7);
        QCOMPARE(next.capture.existenceCheck, 1);
    }

    // Clockwise frames load from the last: the first missing one in that order is named.
    // Reading the record's header takes its frame count into the settings.
    void AnimatedGifReadsTheRecordsFrameCount() {
        const QString folder = Folder("gif");
        Viewer v(folder, [](AppSettings& s) {
            s.imageSize = 32;
            s.captureFrames = 4;
            s.gifDirection = 1;  // clockwise
        });
        ModalAnswers answers;
        v.files.answers << folder + "/Four.sqi";
        v.window->Flows().NewCapture();
        QVERIFY(QFile::remove(Frame(folder + "/Four", 1, 4)));
        QVERIFY(QFile::remove(Frame(folder + "/Four", 2, 4)));
        v.session->Settings().captureFrames = 9;
        v.files.answers << folder + "/Four.sqi" << folder + "/Four_ANI.gif";
        v.window->Flows().MakeAnimatedGif();
        QVERIFY(v.prompter.told.last().contains("Four_F[2].gif"));
        QVERIFY(!QFile::exists(folder + "/Four_ANI.gif"));
        v.files.answers << folder + "/Four.sqi" << folder + "/Four_ANI.webp";
        v.window->Flows().MakeAnimatedGif();
        QVERIFY(v.prompter.told.last().contains("Four_F[2].gif"));
        QVERIFY(!QFile::exists(folder + "/Four_ANI.webp"));
        QCOMPARE(v.session->Settings().captureFrames, 4);
    }

    // Shift+Up/Down and vertical drags in the light-ray area turn the light about its own X
    // axis (which they therefore leave where it is); across, about the view's Y axis.
    void LightTurnsAboutItsOwnXAxis() {
        Viewer v(Folder("light"), [](AppSettings&) {});
        LightArea& area = v.window->Light();
        emit area.pressed(QPoint(60, 60));
        DragTo(v, 90, 60);  // an eighth of a turn about the view's Y axis
        const Vec3 across = LightX(v);
        const Vec3 direction = v.session->Scene().ShownView().LightDirection;
        DragTo(v, 90, 80);
        emit area.released();
        QVERIFY(!Near(v.session->Scene().ShownView().LightDirection, direction, 1e-3));
        QVERIFY(Near(LightX(v), across));

        const Vec3 before = v.session->Scene().ShownView().LightDirection;
        QSignalSpy previews(&v.session->Sink(), &QtWorkerSink::previewReady);
        v.session->Client().Post(kAnimateRotation, 1014);  // Shift+Up
        QTRY_VERIFY(previews.count() >= 3);
        v.session->Client().PostStop();
        // A reset (which leaves the light alone) queued behind the stop: once it is done,
        // the turn has ended.
        v.session->Client().ResetOrientation();
        WaitIdle(v);
        QVERIFY(!Near(v.session->Scene().ShownView().LightDirection, before, 1e-3));
        QVERIFY(Near(LightX(v), across));
    }

    // Reset View brings the view back to the front, except in incremental mode, where it
    // only derives the frame again from its vectors.
    void ResetViewInIncrementalMode() {
        Viewer v(Folder("reset"), [](AppSettings& s) { s.IncrementalViewMode = 1; });
        MainWindow& w = *v.window;
        emit w.Panel().pressed(QPoint(100, 100));
        DragTo(v, 160, 130);
        emit w.Panel().released();
        const OrientationFrame turned = v.session->Scene().ShownView().view;
        QVERIFY(!SameFrame(turned, OrientationFrame{}));
        ButtonNamed(w, "Reset View").click();
        WaitIdle(v);
        QVERIFY(SameFrame(v.session->Scene().ShownView().view, turned));
        w.IncrementalBox().click();
        ButtonNamed(w, "Reset View").click();
        QTRY_VERIFY(SameFrame(v.session->Scene().ShownView().view, OrientationFrame{}));
    }

    // The light-ray area shows what was turned as a small picture; the target-picture
    // setting off leaves the view point's picture out.
    void TargetPictureFollowsTheSetting() {
        Viewer v(Folder("target"), [](AppSettings& s) { s.targetPicture = 0; });
        MainWindow& w = *v.window;
        ModalAnswers answers;
        const auto target = [&] { return w.Light().grab(LightArea::TargetRect()).toImage(); };
        QVERIFY(Uniform(target()));
        emit w.Panel().pressed(QPoint(100, 100));
        DragTo(v, 130, 100);
        emit w.Panel().released();
        QTRY_COMPARE(w.Light().Target(), int(kTargetViewPoint));
        QVERIFY(Uniform(target()));
        v.session->Settings().targetPicture = 1;
        MenuAction(w, "General Settings (&S)").trigger();
        QVERIFY(!Uniform(target()));
        w.ObjectWiseBox().click();
        emit w.Panel().pressed(QPoint(100, 100));
        DragTo(v, 100, 130);
        emit w.Panel().released();
        QTRY_COMPARE(w.Light().Target(), int(kTargetObject));
        QVERIFY(!Uniform(target()));
    }

    // The three questions that restore or complete offer Yes on Enter; the busy question No.
    void QuestionDefaultButtons() {
        QtPrompter prompter;
        QList<bool> yesIsDefault;
        QTimer timer;
        connect(&timer, &QTimer::timeout, [&] {
            if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
                yesIsDefault << (box->defaultButton() == box->button(QMessageBox::Yes));
                box->button(QMessageBox::No)->click();
            }
        });
        timer.start(10);
        QVERIFY(!prompter.AskYesNo(kRestoreDefaultsQuestion, DefaultAnswer::kYes));
        QVERIFY(!prompter.AskYesNo(kNowRendering, DefaultAnswer::kNo));
        QCOMPARE(yesIsDefault, (QList<bool>{true, false}));
    }

    // The refractive index reads the number at the start of the field, as C does.
    void IndexFieldReadsTheLeadingNumber() {
        Viewer v(Folder("index"), [](AppSettings& s) { s.imageSize = 32; });
        QLineEdit& field = v.window->IndexField();
        const QList<std::pair<QString, QString>> cases = {
            {"2.5x", "2.50"}, {"abc", "1.00"}, {" +1.8e0 junk", "1.80"}, {"1e999", "3.00"}};
        for (const auto& [typed, shown] : cases) {
            field.setText(typed);
            emit field.editingFinished();
            QCOMPARE(field.text(), shown);
        }
        field.setText("2.42 is diamond");
        QSignalSpy finished(&v.session->Sink(), &QtWorkerSink::renderFinished);
        v.window->RequestRender();
        QVERIFY(v.prompter.told.isEmpty());
        QTRY_VERIFY_WITH_TIMEOUT(finished.count() == 1, 20000);
        QCOMPARE(v.session->Settings().refractiveIndex, 2.42);
    }

    // Keys turn the stone only when nothing else wants them: typing in the index field
    // types, the arrows move in an open list.
    void KeysTurnOnlyWhenNoEditorHasThem() {
        Viewer v(Folder("keys"), [](AppSettings&) {});
        MainWindow& w = *v.window;
        w.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&w));
        KeyStateTable& keys = v.session->Keys();
        QLineEdit& field = w.IndexField();
        field.setFocus();
        QTest::keyPress(&field, Qt::Key_X, Qt::NoModifier);
        QVERIFY(!keys.IsDown(Key::kX));
        QVERIFY(field.text().endsWith("x"));
        QTest::keyRelease(&field, Qt::Key_X, Qt::NoModifier);
        w.CutList().showPopup();
        QTRY_VERIFY(QApplication::activePopupWidget());
        QTest::keyPress(QApplication::activePopupWidget(), Qt::Key_Down);
        QVERIFY(!keys.IsDown(Key::kDown));
        QTest::keyRelease(QApplication::activePopupWidget(), Qt::Key_Down);
        w.CutList().hidePopup();
        QTRY_VERIFY(!QApplication::activePopupWidget());
        w.setFocus();
        QTest::keyPress(&w, Qt::Key_X);
        QVERIFY(keys.IsDown(Key::kX));
        QTest::keyRelease(&w, Qt::Key_X);
        QVERIFY(!keys.IsDown(Key::kX));
    }

    // The menus' shortcuts, and Enter in the index field, do what their items do.
    void ShortcutsRenderAbortAndSave() {
        const QString folder = Folder("shortcuts");
        Viewer v(folder, [](AppSettings& s) { SlowRender(s); });
        MainWindow& w = *v.window;
        w.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&w));
        QSignalSpy finished(&v.session->Sink(), &QtWorkerSink::renderFinished);
        w.setFocus();
        QTest::keyClick(&w, Qt::Key_F5);
        QVERIFY(v.session->Client().Rendering());
        v.prompter.answer = true;
        QTest::keyClick(&w, Qt::Key_Escape);
        QCOMPARE(v.prompter.asked, QStringList{kNowRendering});
        QTRY_VERIFY_WITH_TIMEOUT(!v.session->Client().Rendering(), 60000);
        v.session->Settings().highQuality = 0;
        v.session->Settings().imageSize = 32;
        QTest::keyClick(&w, Qt::Key_R, Qt::ControlModifier);
        QTRY_VERIFY_WITH_TIMEOUT(finished.count() == 2, 20000);
        QTRY_VERIFY(!v.session->Client().Rendering());

        w.IndexField().setFocus();
        QTest::keyClick(&w.IndexField(), Qt::Key_Return);
        QTRY_VERIFY_WITH_TIMEOUT(finished.count() == 3, 20000);
        QTRY_VERIFY(!v.session->Client().Rendering());
        QTest::keyClick(&w, Qt::Key_S, Qt::ControlModifier);
        QCOMPARE(v.files.titles, QStringList{"Save Screen Shot"});
        QCOMPARE(MenuAction(w, "Exit (&X)").shortcut(), QKeySequence("Ctrl+Q"));
    }

    // Nothing moves when the abort button comes and goes: a click aimed at HQ after a
    // render lands on HQ.
    void HqStaysInPlaceAroundARender() {
        Viewer v(Folder("hq"), [](AppSettings& s) { SlowRender(s); });
        MainWindow& w = *v.window;
        const QRect hq = w.HqButton().geometry();
        QSignalSpy finished(&v.session->Sink(), &QtWorkerSink::renderFinished);
        w.RequestRender();
        QTRY_VERIFY(w.ProgressButton().isVisible());
        QCOMPARE(w.HqButton().geometry(), hq);
        QTRY_VERIFY_WITH_TIMEOUT(finished.count() == 1, 60000);
        QTRY_VERIFY(!w.ProgressButton().isVisible());
        QCOMPARE(w.HqButton().geometry(), hq);
        QTest::mouseClick(&w.HqButton(), Qt::LeftButton);  // HQ was on for the render
        QVERIFY(!w.HqButton().isChecked());
        QCOMPARE(v.session->Settings().highQuality, 0);
    }

    // A setting confirmed with OK is on disk at once, not only when the viewer closes.
    void OkWritesTheSettingsFile() {
        const QString folder = Folder("ok");
        Viewer v(folder, [](AppSettings&) {});
        ModalAnswers answers;
        v.session->Settings().recursionDepth = 13;
        MenuAction(*v.window, "General Settings (&S)").trigger();
        AppSettings onDisk;
        LoadSettings((folder + "/Setting.ini").toStdString(), onDisk, {});
        QCOMPARE(onDisk.recursionDepth, 13);
    }

    // The render window opens beside the main window, and "on top" makes it the main
    // window's own (above it, not above everything).
    void RenderWindowBesideTheMainWindow() {
        const QRect screen(0, 0, 1920, 1080);
        QCOMPARE(RenderWindow::BesidePosition(QRect(100, 50, 800, 600), QSize(300, 300), screen),
                 QPoint(908, 50));
        QCOMPARE(RenderWindow::BesidePosition(QRect(1200, 50, 600, 600), QSize(300, 300), screen),
                 QPoint(892, 50));
        QCOMPARE(RenderWindow::BesidePosition(QRect(0, 900, 1900, 600), QSize(300, 300), screen),
                 QPoint(0, 780));

        Viewer v(Folder("beside"), [](AppSettings& s) {
            s.imageSize = 32;
            s.separateRenderWindow = 1;
            s.renderWindowTopMost = 1;
        });
        Render(v);
        RenderWindow& render = v.window->Render();
        QVERIFY(render.isVisible());
        QCOMPARE(render.parentWidget(), v.window.get());
        QVERIFY(!(render.windowFlags() & Qt::WindowStaysOnTopHint));
        v.window->TopMostAction().trigger();
        Render(v);
        QCOMPARE(render.parentWidget(), nullptr);
    }

    // The help text is set in a proportional sans-serif face (Verdana where installed).
    void InformationPanelUsesASansSerifFont() {
        Viewer v(Folder("font"), [](AppSettings&) {});
        QLabel& info = v.window->InfoLabel();
        QTextDocument document;
        document.setDefaultFont(info.font());
        document.setHtml(info.text());
        QTextCursor cursor(&document);
        cursor.movePosition(QTextCursor::End);
        const QFont font = cursor.charFormat().font().resolve(document.defaultFont());
        QVERIFY(!QFontInfo(font).fixedPitch());
        if (QFontDatabase::hasFamily("Verdana"))
            QCOMPARE(QFontInfo(font).family(), QString("Verdana"));
    }
};

}  // namespace kirameki

QTEST_MAIN(kirameki::ViewerBehaviourTest)
#include "viewer_behaviour_test.moc"
