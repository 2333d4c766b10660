#pragma once

#include <QMainWindow>
#include <array>

#include "app/viewer_session.h"

class QAction;
class QActionGroup;
class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QMenu;
class QPushButton;

namespace kirameki {

class LightArea;
class FileChooser;
class OutputFlows;
class DesignWindow;
class SettingDialog;
class RenderWindow;
class LightPerformanceWindow;
class ViewPanel;

// The main window: menus, the stone, cut and colour lists with the refractive index, the
// hold-to-rotate buttons, the render command with its progress/abort button, the view
// panel and the information panel. Every piece of work goes to the worker.
class MainWindow : public QMainWindow {
    Q_OBJECT

  public:
    MainWindow(ViewerSession& session, FileChooser& files, QWidget* parent = nullptr);
    OutputFlows& Flows() { return *flows_; }
    ~MainWindow() override;

    // For tests and the screen-shot flows.
    ViewPanel& Panel() { return *panel_; }
    QPushButton& ProgressButton() { return *progressButton_; }
    QPushButton& RenderButton() { return *renderButton_; }
    QComboBox& StoneList() { return *stoneList_; }
    QComboBox& CutList() { return *cutList_; }
    QComboBox& ColourList() { return *colourList_; }
    QLineEdit& IndexField() { return *indexField_; }
    QAction& PolygonColourAction(int index) { return *polygonColourActions_[index]; }
    QAction& ShowTitleAction() { return *showTitle_; }
    QAction& TopMostAction() { return *topMost_; }
    QPushButton& HqButton() { return *hqButton_; }
    QCheckBox& ObjectWiseBox() { return *objectWise_; }
    QCheckBox& IncrementalBox() { return *incremental_; }
    QLabel& InfoLabel() { return *info_; }
    LightArea& Light() { return *lightArea_; }
    RenderWindow& Render() { return *renderWindow_; }
    // The light performance window, made on first use.
    LightPerformanceWindow& LightPerformance();

    // Opens a design file as the stone (the menu, a drop, the recent list and the command
    // line all come here): a design that cannot be read is told with its line and changes
    // nothing; one made for another refractive index offers it. False when not opened.
    bool OpenDesign(const QString& path);
    // A design of the recent list: one no longer there is taken off the list, with a message.
    void OpenRecentDesign(const QString& path);
    QAction& DesignWindowAction() { return *designWindowAction_; }
    QMenu& RecentDesignsMenu() { return *recentMenu_; }
    DesignWindow* CuttingTable() { return designWindow_; }
    void ShowDesignWindow();

    // Closes without questions (the program was told to stop): a render is aborted, the
    // settings are written.
    void Terminate();

    // The render command: checks the refractive index, then posts the render.
    void RequestRender();
    // The refractive index check before a render or capture (with its message).
    bool CheckRefractiveIndex();

  protected:
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

  private:
    void BuildMenus();
    QWidget* BuildControls();
    void FillLists();
    void ShowChoice();
    // The HQ button, the panel toggles, the trimming frame and the target-picture option as
    // the settings hold them (after a record or a setting window replaced them).
    void ShowToggles();
    // Redraws the panel at its new size (posted only while no render runs).
    void RefreshPanel();
    bool KeysTurnTheStone() const;
    void UpdateInfo();
    void ConnectWorker();
    void SelectStone(int index);
    void SelectCut(int index);
    void SelectColour(int index);
    void ReadBackIndex();
    void SetPanelToggle(bool objectWise, bool on);
    void ShowVersion();
    void ChooseDesign();
    void FillRecentMenu();
    // The cut list's extra entry, the design window and its menu item as the open design is.
    void ShowDesign();
    void ShowLightPerformance();
    void ApplySettingWindow(SettingDialog& dialog, bool rebuild);
    bool KeyEvent(QKeyEvent* event, bool down);

    ViewerSession& session_;
    FileChooser& files_;
    DesignWindow* designWindow_ = nullptr;
    QAction* designWindowAction_ = nullptr;
    QMenu* recentMenu_ = nullptr;
    ViewPanel* panel_ = nullptr;
    LightArea* lightArea_ = nullptr;
    RenderWindow* renderWindow_ = nullptr;
    OutputFlows* flows_ = nullptr;
    LightPerformanceWindow* lightPerformance_ = nullptr;  // made when first shown
    QComboBox* stoneList_ = nullptr;
    QComboBox* cutList_ = nullptr;
    QComboBox* colourList_ = nullptr;
    QLineEdit* indexField_ = nullptr;
    QPushButton* renderButton_ = nullptr;
    QPushButton* progressButton_ = nullptr;
    QPushButton* hqButton_ = nullptr;
    QCheckBox* objectWise_ = nullptr;
    QCheckBox* incremental_ = nullptr;
    QLabel* info_ = nullptr;
    QLabel* choice_ = nullptr;
    QAction* showTitle_ = nullptr;
    QAction* topMost_ = nullptr;
    std::array<QAction*, 8> polygonColourActions_{};
    int progress_ = 0;
    bool panelRefreshPending_ = false;  // resized while a render ran
    int previewsKeepingRender_ = 0;     // refreshes under way that keep the render shown
    bool terminating_ = false;
};

}  // namespace kirameki
