#include "ui/transformable_models_dialog.h"

#include <QGridLayout>
#include <QSpinBox>
#include <QTabWidget>
#include <QVBoxLayout>

namespace kirameki {

namespace {

enum Tab { kEllipsoid, kPrism, kPyramid, kHedron14, kHedron26, kTabCount };

QWidget* NewPage(const char* name) {
    auto* page = new QWidget;
    page->setObjectName(name);
    return page;
}

}  // namespace

TransformableModelsDialog::TransformableModelsDialog(const AppSettings& settings,
                                                     Prompter& prompter, QWidget* parent)
    : SettingDialog(settings, prompter, parent) {
    setObjectName("ModelSettingWnd");
    setWindowTitle(tr("Transformable Models"));
    tabs_ = new QTabWidget(this);
    const QString percent = tr(" %");
    const auto defaultText = [this](int value) { return tr("( Default = %1 )").arg(value); };

    QWidget* page = NewPage("ModelSettingWnd_TabP1_Ellipsoid");
    auto* grid = new QGridLayout(page);
    // Ellipsoid: S x (R + 1) vertices and S x R faces stay within the 2400 of a model.
    AddField(grid, 0, kEllipsoid, kEllipsoidSurfaces, false, "surfaces",
             tr("Circumferential Surfaces"), 3, 64, QString());
    AddHint(grid, 1, tr("(number of surfaces in the XZ plane)") + "  " + defaultText(16));
    AddField(grid, 2, kEllipsoid, kEllipsoidRows, false, "rows", tr("Vertical Rows"), 2, 32,
             QString());
    AddHint(grid, 3, tr("(number of rows in the XY plane)") + "  " + defaultText(8));
    AddField(grid, 4, kEllipsoid, kEllipsoidDiameterRatio, false, "diameterRatio",
             tr("XZ Diameter Ratio"), 10, 100, percent);
    AddHint(grid, 5,
            tr("Length ratio of XZ diameter to that of circumsphere. ( 100% )") + "  " +
                defaultText(80));
    AddField(grid, 6, kEllipsoid, kEllipsoidCompression, false, "compression",
             tr("Z Compression Ratio"), 10, 100, percent);
    AddHint(grid, 7, tr("Compression ratio of Z height to X width.") + "  " + defaultText(70));
    grid->setRowStretch(8, 1);
    tabs_->addTab(page, tr("Ellipsoid"));

    const struct {
        Tab tab;
        const char* page;
        const char* sidesName;
        const char* heightName;
        int sides;
        int height;
        QString title;
    } sided[] = {
        {kPrism, "ModelSettingWnd_TabP2_Prism", "prismSides", "prismHeight", kPrismSides,
         kPrismHeight, tr("Prism")},
        {kPyramid, "ModelSettingWnd_TabP3_Conic", "pyramidSides", "pyramidHeight", kPyramidSides,
         kPyramidHeight, tr("Pyramid")},
    };
    for (const auto& solid : sided) {
        page = NewPage(solid.page);
        grid = new QGridLayout(page);
        AddField(grid, 0, solid.tab, solid.sides, false, solid.sidesName,
                 tr("Number Of Base Sides"), 3, 16, QString());
        AddHint(grid, 1, defaultText(6));
        AddField(grid, 2, solid.tab, solid.height, false, solid.heightName, tr("Height Ratio"), 5,
                 95, percent);
        AddHint(
            grid, 3,
            tr("Ratio of the height to the diameter of circumsphere.") + "  " + defaultText(70));
        grid->setRowStretch(4, 1);
        tabs_->addTab(page, solid.title);
    }

    page = NewPage("ModelSettingWnd_TabP4_Cube14");
    grid = new QGridLayout(page);
    AddField(grid, 0, kHedron14, kHedron14Ratio, false, "hedron14", tr("Corner Cutting Ratio"), 5,
             95, percent);
    AddHint(grid, 1, defaultText(50));
    AddHint(grid, 2,
            tr("Setting the cutting ratio automatically determines the size of the 14 hedron "
               "which inscribes the circumsphere."));
    grid->setRowStretch(3, 1);
    tabs_->addTab(page, tr("14 hedron"));

    page = NewPage("ModelSettingWnd_TabP5_Cube26");
    grid = new QGridLayout(page);
    AddField(grid, 0, kHedron26, kHedron26StoredRatio, true, "hedron26",
             tr("Side And Corner Cutting Ratio"), 5, 95, percent);
    AddHint(grid, 1, defaultText(13));
    AddHint(grid, 2,
            tr("Setting the cutting ratio automatically determines the size of the 26 hedron "
               "which inscribes the circumsphere."));
    grid->setRowStretch(3, 1);
    tabs_->addTab(page, tr("26 hedron"));

    auto* body = new QVBoxLayout;
    body->addWidget(tabs_);
    FinishLayout(body);
    for (int tab = 0; tab < kTabCount; ++tab)
        Show(settings.modelParameters, tab);
    if (IsTransformable(settings.model))
        tabs_->setCurrentIndex(settings.model - kFirstModel);
}

void TransformableModelsDialog::AddField(QGridLayout* grid, int row, int tab, int parameter,
                                         bool inverted, const char* name, const QString& caption,
                                         int minimum, int maximum, const QString& suffix) {
    QSpinBox* box = AddNumberRow(grid, row, name, caption, minimum, maximum, suffix, true);
    fields_.push_back({tab, parameter, inverted, box});
}

void TransformableModelsDialog::Show(const ModelParameters& parameters, int tab) {
    for (const Field& field : fields_) {
        if (field.tab != tab)
            continue;
        const int stored = parameters[field.parameter];
        field.box->setValue(field.inverted ? 100 - stored : stored);
    }
}

bool TransformableModelsDialog::Store(AppSettings& s) {
    for (const Field& field : fields_) {
        const int shown = field.box->value();
        s.modelParameters[field.parameter] = field.inverted ? 100 - shown : shown;
    }
    return true;
}

void TransformableModelsDialog::RestoreDefaults() {
    if (prompter_.AskYesNo(kRestoreDefaultsQuestion, DefaultAnswer::kYes))
        Show(kDefaultModelParameters, tabs_->currentIndex());
}

}  // namespace kirameki
