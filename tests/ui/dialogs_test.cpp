// The setting windows driven offscreen, their questions answered by a scripted prompter.
#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QTabWidget>
#include <QtTest>
#include <functional>
#include <memory>

#include "ui/back_color_light_dialog.h"
#include "ui/capture_header_dialog.h"
#include "ui/general_settings_dialog.h"
#include "ui/gif_settings_dialog.h"
#include "ui/size_dialog.h"
#include "ui/transformable_models_dialog.h"

namespace kirameki {

namespace {

class ScriptedPrompter : public Prompter {
  public:
    bool answer = false;
    QStringList asked, told;
    QList<DefaultAnswer> presets;  // the default button of each question asked
    bool AskYesNo(const std::string& text, DefaultAnswer preset) override {
        asked << QString::fromStdString(text);
        presets << preset;
        return answer;
    }
    void Tell(const std::string& text, bool) override { told << QString::fromStdString(text); }
};

AppSettings Defaults() {
    AppSettings s;
    LoadDefaults(s, {"/shots/", "/caps/"});
    return s;
}

template <typename T>
T& Child(QWidget& parent, const char* name) {
    T* child = parent.findChild<T*>(name);
    if (!child)
        qFatal("no child %s", name);
    return *child;
}

void Click(QWidget& dialog, const char* button) {
    QTest::mouseClick(&Child<QPushButton>(dialog, button), Qt::LeftButton);
}

void Type(QSpinBox& box, const QString& text) {
    box.selectAll();
    QTest::keyClicks(&box, text);
}

bool Same(const AppSettings& a, const AppSettings& b) {
    return SettingsBytes(a) == SettingsBytes(b);
}

using Factory = std::function<std::unique_ptr<SettingDialog>(const AppSettings&, Prompter&)>;

template <typename Dialog>
Factory Make() {
    return [](const AppSettings& s, Prompter& p) { return std::make_unique<Dialog>(s, p); };
}

}  // namespace

class DialogsTest : public QObject {
    Q_OBJECT

  private slots:
    void CancelOkAndDefault_data() {
        QTest::addColumn<Factory>("make");
        QTest::addColumn<std::function<void(AppSettings&)>>("alter");  // the shown fields
        QTest::addColumn<QString>("question");
        using Alter = std::function<void(AppSettings&)>;
        QTest::newRow("general") << Make<GeneralSettingsDialog>() << Alter([](AppSettings& s) {
            s.recursionDepth = 20, s.fire = 0, s.narrowMainLight = 1, s.writePositionInfo = 0;
            s.trim = {10, 20, 30, 40, 1, 0};
            s.showTrimmingFrame = 0, s.rowByRow = 0, s.rotationSpeed = 120, s.targetPicture = 0;
        }) << QString("Restore default settings?");
        QTest::newRow("size") << Make<SizeDialog>() << Alter([](AppSettings& s) {
            s.imageSize = 512, s.separateRenderWindow = 1;
        }) << QString("Restore default settings?");
        QTest::newRow("back colour") << Make<BackColorLightDialog>() << Alter([](AppSettings& s) {
            s.backColour[0] = 255, s.backColour[1] = 1, s.backColour[2] = 128;
            s.mainLightVolume = 0, s.backLightVolume = 200, s.fillLightVolume = 55;
        }) << QString("Restore default settings?");
        // The models window restores the tab it shows, here the 26 hedron's.
        QTest::newRow("models") << Make<TransformableModelsDialog>() << Alter([](AppSettings& s) {
            s.model = 27, s.modelParameters[kHedron26StoredRatio] = 5;
        }) << QString("Restore default settings?");
        QTest::newRow("capture") << Make<CaptureHeaderDialog>()
                                 << Alter([](AppSettings& s) { s.captureFrames = 7; }) << QString();
        QTest::newRow("gif") << Make<GifSettingsDialog>() << Alter([](AppSettings& s) {
            s.gifTimeWeight = 65535, s.gifDirection = 1;
        }) << QString("Restore default setting?");
    }

    void CancelOkAndDefault() {
        QFETCH(Factory, make);
        QFETCH(std::function<void(AppSettings&)>, alter);
        QFETCH(QString, question);
        AppSettings opened = Defaults();
        alter(opened);

        ScriptedPrompter prompter;
        // OK without changes writes back exactly what was shown.
        auto dialog = make(opened, prompter);
        dialog->show();
        Click(*dialog, "ok");
        QCOMPARE(dialog->result(), int(QDialog::Accepted));
        QVERIFY(Same(dialog->Result(), opened));

        // CANCEL after editing every box and check box writes nothing.
        dialog = make(opened, prompter);
        dialog->show();
        for (auto* box : dialog->findChildren<QSpinBox*>())
            box->setValue(box->value() == box->minimum() ? box->maximum() : box->minimum());
        for (auto* check : dialog->findChildren<QCheckBox*>())
            check->toggle();
        Click(*dialog, "cancel");
        QCOMPARE(dialog->result(), int(QDialog::Rejected));
        QVERIFY(Same(dialog->Result(), opened));

        // Default answered No changes nothing; answered Yes restores the table's defaults.
        dialog = make(opened, prompter);
        dialog->show();
        Click(*dialog, "default");
        if (!question.isEmpty()) {
            QCOMPARE(prompter.asked, QStringList{question});
            QCOMPARE(prompter.presets.value(0), DefaultAnswer::kYes);  // Enter restores
            Click(*dialog, "ok");
            QVERIFY(Same(dialog->Result(), opened));
            prompter.answer = true;
            dialog = make(opened, prompter);
            dialog->show();
            Click(*dialog, "default");
        }
        Click(*dialog, "ok");
        AppSettings expected = Defaults();
        expected.model = opened.model;
        QVERIFY(Same(dialog->Result(), expected));
        QCOMPARE(prompter.asked.size(), question.isEmpty() ? 0 : 2);
    }

    void GeneralSettingsWritesEachOptionToItsField() {
        ScriptedPrompter prompter;
        GeneralSettingsDialog dialog(Defaults(), prompter);
        QCOMPARE(dialog.objectName(), QString("SettingWnd"));
        dialog.show();
        Child<QCheckBox>(dialog, "fire").setChecked(false);
        Child<QCheckBox>(dialog, "narrowLight").setChecked(true);
        Child<QCheckBox>(dialog, "trimmingFrame").setChecked(false);
        Child<QCheckBox>(dialog, "targetPicture").setChecked(false);
        Child<QCheckBox>(dialog, "trimming").setChecked(true);
        Child<QSpinBox>(dialog, "trimLeft").setValue(30);
        QLabel& range = Child<QLabel>(dialog, "depthRange");
        QCOMPARE(range.text(), QString("( 1 - 20 )"));
        Type(Child<QSpinBox>(dialog, "depth"), "25");     // beyond Max=20
        QCOMPARE(range.text(), QString("Only 1 to 20"));  // says why the 5 went nowhere
        Click(dialog, "ok");
        const AppSettings& r = dialog.Result();
        QCOMPARE(r.recursionDepth, 2);  // "25" stops at "2": the box refuses the 5
        QCOMPARE(r.fire, 0);
        QCOMPARE(r.narrowMainLight, 1);
        QCOMPARE(r.showTrimmingFrame, 0);
        QCOMPARE(r.rowByRow, 1);
        QCOMPARE(r.targetPicture, 0);
        QCOMPARE(r.writePositionInfo, 1);
        QVERIFY((r.trim == Trim{0, 0, 30, 0, 1, 0}));
    }

    void TrimmingMustLeaveAPicture() {
        ScriptedPrompter prompter;
        AppSettings s = Defaults();
        s.imageSize = 100;
        GeneralSettingsDialog dialog(s, prompter);
        dialog.show();
        QCOMPARE(Child<QSpinBox>(dialog, "trimTop").maximum(), 99);
        Child<QCheckBox>(dialog, "trimming").setChecked(true);
        Child<QSpinBox>(dialog, "trimLeft").setValue(60);
        Child<QSpinBox>(dialog, "trimRight").setValue(40);
        Click(dialog, "ok");
        QVERIFY(dialog.isVisible());
        QCOMPARE(prompter.told, QStringList{kTrimmingTooLarge});
        QVERIFY(Same(dialog.Result(), s));
        // With trimming off the same margins are only kept.
        Child<QCheckBox>(dialog, "trimming").setChecked(false);
        Click(dialog, "ok");
        QVERIFY(!dialog.isVisible());
        QCOMPARE(dialog.Result().trim.left + dialog.Result().trim.right, 100);
    }

    void SizeStaysInRange() {
        ScriptedPrompter prompter;
        SizeDialog dialog(Defaults(), prompter);
        dialog.show();
        auto& size = Child<QSpinBox>(dialog, "size");
        Type(size, "600");
        QVERIFY(size.value() <= 512);
        size.setValue(600);
        QCOMPARE(size.value(), 512);
        Type(size, "abc");
        Click(dialog, "ok");
        QCOMPARE(dialog.Result().imageSize, 512);
        size.setValue(31);
        QCOMPARE(size.value(), 32);
    }

    void BackColourKeepsItsUnusedElements() {
        ScriptedPrompter prompter;
        AppSettings s = Defaults();
        s.backColour = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12};
        BackColorLightDialog dialog(s, prompter);
        dialog.show();
        Child<QSpinBox>(dialog, "green").setValue(300);
        QCOMPARE(Child<QLabel>(dialog, "swatch").palette().color(QPalette::Window),
                 QColor(1, 255, 3));
        Click(dialog, "ok");
        QCOMPARE(dialog.Result().backColour,
                 (std::array<std::int16_t, 12>{1, 255, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12}));
    }

    void TransformableModels() {
        QVERIFY(!TransformableModelsDialog::IsTransformable(22));
        QVERIFY(TransformableModelsDialog::IsTransformable(23));
        QVERIFY(TransformableModelsDialog::IsTransformable(27));
        QVERIFY(!TransformableModelsDialog::IsTransformable(28));

        ScriptedPrompter prompter;
        AppSettings s = Defaults();
        s.model = 24;
        TransformableModelsDialog dialog(s, prompter);
        dialog.show();
        QTabWidget& tabs = *dialog.findChild<QTabWidget*>();
        const QStringList pages = {"ModelSettingWnd_TabP1_Ellipsoid", "ModelSettingWnd_TabP2_Prism",
                                   "ModelSettingWnd_TabP3_Conic", "ModelSettingWnd_TabP4_Cube14",
                                   "ModelSettingWnd_TabP5_Cube26"};
        const QStringList captions = {"Ellipsoid", "Prism", "Pyramid", "14 hedron", "26 hedron"};
        for (int i = 0; i < tabs.count(); ++i) {
            QCOMPARE(tabs.widget(i)->objectName(), pages.value(i));
            QCOMPARE(tabs.tabText(i), captions.value(i));
        }
        QCOMPARE(tabs.count(), 5);
        QCOMPARE(tabs.currentIndex(), 1);

        auto& hedron26 = Child<QSpinBox>(dialog, "hedron26");
        QCOMPARE(hedron26.value(), 13);  // stored 87
        hedron26.setValue(20);
        Child<QSpinBox>(dialog, "prismSides").setValue(17);
        Child<QSpinBox>(dialog, "surfaces").setValue(100);
        Child<QSpinBox>(dialog, "rows").setValue(100);
        Click(dialog, "ok");
        const ModelParameters& p = dialog.Result().modelParameters;
        QCOMPARE(p[kHedron26StoredRatio], 80);
        QCOMPARE(p[kPrismSides], 16);
        QVERIFY(p[kEllipsoidSurfaces] * (p[kEllipsoidRows] + 1) <= 2400);
    }

    void CaptureFramesAndGifDirection() {
        ScriptedPrompter prompter;
        CaptureHeaderDialog capture(Defaults(), prompter);
        QCOMPARE(capture.objectName(), QString("HeaderSettingWnd"));
        capture.show();
        Type(Child<QSpinBox>(capture, "frames"), "0");
        QCOMPARE(Child<QLabel>(capture, "framesRange").text(), QString("Only 1 to 100000"));
        Type(Child<QSpinBox>(capture, "frames"), "360");
        QCOMPARE(Child<QLabel>(capture, "framesRange").text(), QString());
        Click(capture, "ok");
        QCOMPARE(capture.Result().captureFrames, 360);

        GifSettingsDialog gif(Defaults(), prompter);
        QCOMPARE(gif.objectName(), QString("GifAniFileSettingWnd"));
        gif.show();
        QVERIFY(Child<QRadioButton>(gif, "anticlockwise").isChecked());
        Child<QRadioButton>(gif, "clockwise").click();
        Type(Child<QSpinBox>(gif, "timeWeight"), "100");
        Click(gif, "ok");
        QCOMPARE(gif.Result().gifTimeWeight, 100);
        QCOMPARE(gif.Result().gifDirection, 1);
    }
};

}  // namespace kirameki

QTEST_MAIN(kirameki::DialogsTest)
#include "dialogs_test.moc"
