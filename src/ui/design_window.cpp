#include "ui/design_window.h"

#include <QDialogButtonBox>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPainter>
#include <QPixmap>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

#include "ui/cutting_sheet.h"

namespace kirameki {

DesignWindow::DesignWindow(SheetChooser choose, Prompter& prompts, QWidget* parent)
    : QDialog(parent), choose_(std::move(choose)), prompts_(prompts) {
    setWindowTitle(tr("Design"));
    setModal(false);
    auto* layout = new QVBoxLayout(this);
    titles_ = new QLabel(this);
    titles_->setWordWrap(true);
    titles_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    gear_ = new QLabel(this);
    layout->addWidget(titles_);
    layout->addWidget(gear_);
    tiers_ = new QTableWidget(0, 4, this);
    tiers_->setHorizontalHeaderLabels({tr("Tier"), tr("Angle"), tr("Indices"), tr("Instruction")});
    tiers_->horizontalHeader()->setSectionResizeMode(2, QHeaderView::Stretch);
    tiers_->horizontalHeader()->setSectionResizeMode(3, QHeaderView::Stretch);
    tiers_->verticalHeader()->hide();
    tiers_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    tiers_->setWordWrap(true);
    layout->addWidget(tiers_, 1);
    auto* lower = new QHBoxLayout;
    proportions_ = new QLabel(this);
    proportions_->setWordWrap(true);
    proportions_->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    lower->addWidget(proportions_, 1);
    for (QLabel*& outline : outlines_) {
        outline = new QLabel(this);
        lower->addWidget(outline);
    }
    layout->addLayout(lower);
    notes_ = new QLabel(this);
    notes_->setWordWrap(true);
    notes_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    layout->addWidget(notes_);
    auto* buttons = new QDialogButtonBox(this);
    QPushButton* save = buttons->addButton(tr("Save PDF..."), QDialogButtonBox::ActionRole);
    QPushButton* close = buttons->addButton(QDialogButtonBox::Close);
    close->setText(tr("Close"));
    connect(save, &QPushButton::clicked, this, &DesignWindow::SavePdf);
    connect(close, &QPushButton::clicked, this, &QDialog::close);
    layout->addWidget(buttons);
    resize(760, 620);
}

void DesignWindow::SetDesign(std::shared_ptr<const OpenDesign> design) {
    design_ = std::move(design);
    if (!design_)
        return;
    const Design& d = design_->design;
    QStringList titles;
    titles << "<b>" + DesignTitle(*design_).toHtmlEscaped() + "</b>";
    for (std::size_t i = 1; i < d.titles.size(); ++i)
        titles << QString::fromStdString(d.titles[i]).toHtmlEscaped();
    titles << QString::fromStdString(design_->path).toHtmlEscaped();
    titles_->setText(titles.join("<br>"));
    gear_->setText(GearLine(*design_));
    const std::vector<CuttingRow> rows = CuttingRows(*design_);
    tiers_->setRowCount(int(rows.size()));
    for (int r = 0; r < int(rows.size()); ++r) {
        const CuttingRow& row = rows[std::size_t(r)];
        const QString cells[4] = {row.name, row.angle, row.indices, row.instruction};
        for (int c = 0; c < 4; ++c) {
            auto* item = new QTableWidgetItem(cells[c]);
            if (!row.touching) {
                item->setForeground(Qt::gray);
                item->setToolTip(tr("This tier does not touch the stone."));
            }
            tiers_->setItem(r, c, item);
        }
    }
    tiers_->resizeColumnsToContents();
    tiers_->resizeRowsToContents();
    proportions_->setText("<b>" + tr("Proportions (of the width)") + "</b><br>" +
                          ProportionLines(*design_).join("<br>"));
    // The crown and the side as the cutting sheet draws them.
    const StoneView views[2] = {StoneView::kTop, StoneView::kSide};
    for (int i = 0; i < 2; ++i) {
        QPixmap picture(QSize(190, 190) * devicePixelRatioF());
        picture.setDevicePixelRatio(devicePixelRatioF());
        picture.fill(Qt::white);
        QPainter painter(&picture);
        DrawStoneView(painter, *design_, views[i], QRectF(8, 8, 174, 174));
        painter.end();
        outlines_[std::size_t(i)]->setPixmap(picture);
    }
    QStringList notes;
    for (const std::string& note : d.footnotes)
        notes << QString::fromStdString(note).toHtmlEscaped();
    notes_->setText(notes.join("<br>"));
    notes_->setVisible(!notes.isEmpty());
    setWindowTitle(tr("Design") + " - " + DesignTitle(*design_));
}

void DesignWindow::SavePdf() {
    if (!design_)
        return;
    const QFileInfo source(QString::fromStdString(design_->path));
    QString path = choose_(this, source.absolutePath() + "/" + source.completeBaseName() + ".pdf");
    if (path.isEmpty())
        return;
    if (!path.endsWith(".pdf", Qt::CaseInsensitive))
        path += ".pdf";
    QString error;
    if (!WriteCuttingSheet(*design_, path, error)) {
        prompts_.Tell(tr("The cutting sheet could not be saved.\n\n%1").arg(error).toStdString(),
                      true);
        return;
    }
    prompts_.Tell(tr("The cutting sheet was saved.\n\n%1").arg(path).toStdString(), false);
}

}  // namespace kirameki
