#pragma once

#include <QDialog>

namespace kirameki {

// The welcome window shown at start when the View menu's "Show Title" is checked.
class TitleWindow : public QDialog {
    Q_OBJECT

  public:
    explicit TitleWindow(QWidget* parent = nullptr);
};

}  // namespace kirameki
