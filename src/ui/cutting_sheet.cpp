#include "ui/cutting_sheet.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QFontMetricsF>
#include <QPageSize>
#include <QPainter>
#include <QPainterPath>
#include <QPdfWriter>
#include <QPolygonF>
#include <QRegularExpression>
#include <QSaveFile>
#include <algorithm>
#include <cmath>
#include <functional>

#include "model/design_solid.h"

namespace kirameki {

namespace {

QString Tr(const char* text) {
    return QCoreApplication::translate("CuttingSheet", text);
}

// The texts this file shows through Tr, listed for translation.
[[maybe_unused]] const char* const kTexts[] = {
    QT_TRANSLATE_NOOP("CuttingSheet", "Length / width"),
    QT_TRANSLATE_NOOP("CuttingSheet", "Table"),
    QT_TRANSLATE_NOOP("CuttingSheet", "Crown height"),
    QT_TRANSLATE_NOOP("CuttingSheet", "Pavilion depth"),
    QT_TRANSLATE_NOOP("CuttingSheet", "Total depth"),
    QT_TRANSLATE_NOOP("CuttingSheet", "Girdle thickness"),
    QT_TRANSLATE_NOOP("CuttingSheet", "Volume"),
    QT_TRANSLATE_NOOP("CuttingSheet", "Gear %1, offset %2°, symmetry %3%4, refractive index %5"),
    QT_TRANSLATE_NOOP("CuttingSheet", " with mirror"),
    QT_TRANSLATE_NOOP("CuttingSheet", "not given"),
    QT_TRANSLATE_NOOP("CuttingSheet", "Crown"),
    QT_TRANSLATE_NOOP("CuttingSheet", "Pavilion"),
    QT_TRANSLATE_NOOP("CuttingSheet", "Side"),
    QT_TRANSLATE_NOOP("CuttingSheet", "Tier"),
    QT_TRANSLATE_NOOP("CuttingSheet", "Angle"),
    QT_TRANSLATE_NOOP("CuttingSheet", "Indices"),
    QT_TRANSLATE_NOOP("CuttingSheet", "Instruction"),
    QT_TRANSLATE_NOOP("CuttingSheet", "(does not touch the stone)"),
    QT_TRANSLATE_NOOP("CuttingSheet", "Proportions (of the width)"),
};

QString IndexText(double index, int digits) {
    if (index == std::floor(index))
        return QString("%1").arg(int(index), digits, 10, QChar('0'));
    return QString::number(index, 'f', 2).remove(QRegularExpression("0+$"));
}

// Places every tier: P for the pavilion, G the girdle, C the crown, T a table.
std::vector<QString> TierLabels(const Design& design) {
    std::vector<QString> labels;
    int pavilion = 0, girdle = 0, crown = 0;
    for (const DesignTier& tier : design.tiers) {
        QString named;
        for (const std::string& name : tier.names)
            if (!name.empty() && !named.split(", ").contains(QString::fromStdString(name)))
                named += (named.isEmpty() ? "" : ", ") + QString::fromStdString(name);
        QString place;
        if (std::abs(tier.angle - 90.0) < 1e-9)
            place = QString("G%1").arg(++girdle);
        else if (tier.below)
            place = QString("P%1").arg(++pavilion);
        else if (tier.angle == 0.0)
            place = "T";
        else
            place = QString("C%1").arg(++crown);
        labels.push_back(named.isEmpty() ? place : named);
    }
    return labels;
}

QString FacetName(const Design& design, const std::vector<QString>& labels,
                  const DesignPlane& plane) {
    const DesignTier& tier = design.tiers[std::size_t(plane.tier)];
    const auto position = std::size_t(plane.position);
    if (position < tier.names.size() && !tier.names[position].empty())
        return QString::fromStdString(tier.names[position]);
    const QString label = labels[std::size_t(plane.tier)];
    return label.section(", ", 0, 0);
}

// The view's paper coordinates of a model point, before scaling: x to the right, y up.
// From above the index 0 points up and the indices run clockwise, as faceters read them.
QPointF Projected(const Vec3& p, StoneView view) {
    switch (view) {
        case StoneView::kTop:
            return {p.z, p.x};
        case StoneView::kBottom:
            return {-p.z, p.x};
        case StoneView::kSide:
            return {-p.z, p.y};
    }
    return {};
}

double Facing(const Vec3& normal, StoneView view) {
    switch (view) {
        case StoneView::kTop:
            return normal.y;
        case StoneView::kBottom:
            return -normal.y;
        case StoneView::kSide:
            return normal.x;
    }
    return 0.0;
}

// The convex hull of the points (the stone's outline in the view), counter-clockwise.
QPolygonF Hull(std::vector<QPointF> points) {
    std::sort(points.begin(), points.end(), [](const QPointF& a, const QPointF& b) {
        return a.x() < b.x() || (a.x() == b.x() && a.y() < b.y());
    });
    const auto cross = [](const QPointF& o, const QPointF& a, const QPointF& b) {
        return (a.x() - o.x()) * (b.y() - o.y()) - (a.y() - o.y()) * (b.x() - o.x());
    };
    std::vector<QPointF> hull(2 * points.size() + 1);
    std::size_t k = 0;
    for (const QPointF& p : points) {
        while (k >= 2 && cross(hull[k - 2], hull[k - 1], p) <= 0)
            --k;
        hull[k++] = p;
    }
    for (std::size_t i = points.size() - 1, lower = k + 1; i-- > 0;) {
        while (k >= lower && cross(hull[k - 2], hull[k - 1], points[i]) <= 0)
            --k;
        hull[k++] = points[i];
    }
    hull.resize(k > 1 ? k - 1 : k);
    return QPolygonF(QList<QPointF>(hull.begin(), hull.end()));
}

bool InsideConvex(const QPolygonF& polygon, const QPointF& p) {
    int sign = 0;
    for (qsizetype i = 0; i < polygon.size(); ++i) {
        const QPointF a = polygon[i], b = polygon[(i + 1) % polygon.size()];
        const double c = (b.x() - a.x()) * (p.y() - a.y()) - (b.y() - a.y()) * (p.x() - a.x());
        if (std::abs(c) < 1e-12)
            continue;
        const int s = c > 0 ? 1 : -1;
        if (sign && s != sign)
            return false;
        sign = s;
    }
    return true;
}

// Puts the name at the face's centre in the largest font (down to a small one) whose box
// lies inside the face; leaves it out when none does.
void PlaceName(QPainter& painter, const QPolygonF& face, const QString& name) {
    QPointF centre;
    for (const QPointF& p : face)
        centre += p;
    centre /= double(face.size());
    QFont font = painter.font();
    for (double size = 7.0; size >= 3.5; size -= 0.5) {
        font.setPointSizeF(size);
        const QFontMetricsF metrics(font, painter.device());
        QRectF box = metrics.tightBoundingRect(name);
        box.moveCenter(centre);
        box.adjust(-0.5, -0.5, 0.5, 0.5);
        if (InsideConvex(face, box.topLeft()) && InsideConvex(face, box.topRight()) &&
            InsideConvex(face, box.bottomLeft()) && InsideConvex(face, box.bottomRight())) {
            const QFont kept = painter.font();
            painter.setFont(font);
            painter.drawText(box, Qt::AlignCenter, name);
            painter.setFont(kept);
            return;
        }
    }
}

struct Pages {
    QPainter& painter;
    QPdfWriter& writer;
    double top, bottom, left, width;
    double y;
    // Room for a block of the given height: true when it needed a new page.
    bool Need(double height) {
        if (y + height <= bottom)
            return false;
        writer.newPage();
        y = top;
        return true;
    }
};

double Mm(const QPdfWriter& writer, double mm) {
    return mm * writer.resolution() / 25.4;
}

void DrawTable(Pages& page, const OpenDesign& design) {
    QPainter& painter = page.painter;
    const std::vector<CuttingRow> rows = CuttingRows(design);
    const double w = page.width;
    const double columns[4] = {0.14 * w, 0.09 * w, 0.47 * w, 0.30 * w};
    const QString headers[4] = {Tr("Tier"), Tr("Angle"), Tr("Indices"), Tr("Instruction")};
    const double pad = Mm(page.writer, 1.0);
    const std::function<void(const QString(&)[4], bool)> drawRow = [&](const QString(&cells)[4],
                                                                       bool bold) {
        QFont font = painter.font();
        font.setBold(bold);
        painter.setFont(font);
        double height = 0.0;
        for (int c = 0; c < 4; ++c)
            height = std::max(height, painter
                                          .boundingRect(QRectF(0, 0, columns[c] - 2 * pad, 1e6),
                                                        Qt::TextWordWrap, cells[c])
                                          .height());
        height += 2 * pad;
        if (page.Need(height) && !bold)
            drawRow(headers, true);  // every page of the table starts with its header
        double x = page.left;
        for (int c = 0; c < 4; ++c) {
            painter.drawText(QRectF(x + pad, page.y + pad, columns[c] - 2 * pad, height),
                             Qt::TextWordWrap | Qt::AlignLeft | Qt::AlignTop, cells[c]);
            x += columns[c];
        }
        page.y += height;
        painter.drawLine(QPointF(page.left, page.y), QPointF(page.left + w, page.y));
        font.setBold(false);
        painter.setFont(font);
    };
    drawRow(headers, true);
    for (const CuttingRow& row : rows) {
        // A long run of indices breaks after a dash, never inside a number.
        QString indices = row.indices;
        indices.replace('-', QString("-") + QChar(0x200B));
        const QString cells[4] = {
            row.name, row.angle, indices,
            row.touching ? row.instruction
                         : (row.instruction + " " + Tr("(does not touch the stone)")).trimmed()};
        drawRow(cells, false);
    }
}

}  // namespace

QString DesignTitle(const OpenDesign& design) {
    for (const std::string& title : design.design.titles)
        if (!QString::fromStdString(title).trimmed().isEmpty())
            return QString::fromStdString(title).trimmed();
    return QFileInfo(QString::fromStdString(design.path)).fileName();
}

std::vector<CuttingRow> CuttingRows(const OpenDesign& open) {
    const Design& design = open.design;
    const std::vector<QString> labels = TierLabels(design);
    const std::vector<DesignPlane> planes = DesignPlanes(design);
    const int digits = int(QString::number(std::abs(design.gear)).size());
    std::vector<CuttingRow> rows;
    for (std::size_t t = 0; t < design.tiers.size(); ++t) {
        const DesignTier& tier = design.tiers[t];
        CuttingRow row;
        // A tier named facet by facet shows its first and last names.
        const QStringList names = labels[t].split(", ");
        row.name = names.size() > 2 ? names.first() + QString(" – ") + names.last() : labels[t];
        row.angle = (tier.below ? "-" : "") + QString::number(tier.angle, 'f', 2) + "°";
        QStringList indices;
        for (const double index : tier.indices)
            indices << IndexText(index, digits);
        row.indices = indices.join('-');
        row.instruction = QString::fromStdString(tier.instruction);
        row.touching = false;
        for (std::size_t p = 0; p < planes.size(); ++p)
            if (planes[p].tier == int(t) && p < open.solid.touching.size() &&
                open.solid.touching[p])
                row.touching = true;
        rows.push_back(row);
    }
    return rows;
}

QStringList ProportionLines(const OpenDesign& design) {
    const DesignProportions p = MeasureProportions(design.design, design.solid);
    const auto percent = [](double value) { return QString::number(100.0 * value, 'f', 1) + " %"; };
    return {Tr("Length / width") + ": " + QString::number(p.lengthToWidth, 'f', 3),
            Tr("Table") + ": " + percent(p.table),
            Tr("Crown height") + ": " + percent(p.crownHeight),
            Tr("Pavilion depth") + ": " + percent(p.pavilionDepth),
            Tr("Total depth") + ": " + percent(p.totalDepth),
            Tr("Girdle thickness") + ": " + percent(p.girdleThickness),
            Tr("Volume") + ": " + QString::number(p.volume, 'f', 4) + " W³"};
}

QString GearLine(const OpenDesign& open) {
    const Design& d = open.design;
    return Tr("Gear %1, offset %2°, symmetry %3%4, refractive index %5")
        .arg(d.gear)
        .arg(d.offset)
        .arg(d.symmetry)
        .arg(d.mirror ? Tr(" with mirror") : QString())
        .arg(d.index > 0.0 ? QString::number(d.index, 'f', 2) : Tr("not given"));
}

void DrawStoneView(QPainter& painter, const OpenDesign& open, StoneView view, const QRectF& box) {
    const DesignSolid& solid = open.solid;
    if (solid.vertices.empty())
        return;
    std::vector<QPointF> points;
    for (const Vec3& v : solid.vertices)
        points.push_back(Projected(v, view));
    QRectF extent(points.front(), QSizeF(0, 0));
    for (const QPointF& p : points)
        extent |= QRectF(p, QSizeF(1e-12, 1e-12));
    const double scale = std::min(box.width() / std::max(extent.width(), 1e-9),
                                  box.height() / std::max(extent.height(), 1e-9));
    const QPointF middle = extent.center();
    const auto paper = [&](const QPointF& p) {
        return QPointF(box.center().x() + (p.x() - middle.x()) * scale,
                       box.center().y() - (p.y() - middle.y()) * scale);
    };
    const std::vector<DesignPlane> planes = DesignPlanes(open.design);
    const std::vector<QString> labels = TierLabels(open.design);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    const double line = std::max(1.0, box.width() / 400.0);
    painter.setPen(QPen(Qt::darkGray, line * 0.6));
    std::vector<std::pair<QPolygonF, QString>> named;
    for (std::size_t f = 0; f < solid.faces.size(); ++f) {
        const DesignPlane& plane = planes[std::size_t(solid.facePlane[f])];
        if (Facing(plane.normal, view) <= 1e-9)
            continue;
        QPolygonF face;
        for (const int v : solid.faces[f])
            face << paper(points[std::size_t(v)]);
        const bool flat =
            view != StoneView::kSide && std::abs(std::abs(plane.normal.y) - 1.0) < 1e-9;
        painter.setBrush(flat ? QColor(235, 242, 250) : QColor(250, 250, 250));
        painter.drawPolygon(face);
        if (view != StoneView::kSide)
            named.emplace_back(face, FacetName(open.design, labels, plane));
    }
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(Qt::black, line * 1.6));
    QPolygonF outline;
    for (const QPointF& p : Hull(points))
        outline << paper(p);
    painter.drawPolygon(outline);
    painter.setPen(Qt::black);
    for (const auto& [face, name] : named)
        PlaceName(painter, face, name);
    painter.restore();
}

bool WriteCuttingSheet(const OpenDesign& design, const QString& path, QString& error) {
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly)) {
        error = file.errorString();
        return false;
    }
    {
        QPdfWriter writer(&file);
        writer.setPageSize(QPageSize(QPageSize::A4));
        writer.setResolution(300);
        writer.setTitle(DesignTitle(design));
        writer.setCreator("Kirameki");
        QPainter painter;
        if (!painter.begin(&writer)) {
            error = file.errorString();
            file.cancelWriting();
            return false;
        }
        const QRect page = writer.pageLayout().paintRectPixels(writer.resolution());
        const double margin = Mm(writer, 12.0);
        Pages pages{painter, writer,
                    margin,  double(page.height()) - margin,
                    margin,  double(page.width()) - 2 * margin,
                    margin};
        QFont font("Sans Serif");
        font.setPointSizeF(9.0);
        painter.setFont(font);
        const auto text = [&](const QString& line, double size, bool bold) {
            QFont f = font;
            f.setPointSizeF(size);
            f.setBold(bold);
            painter.setFont(f);
            const QRectF room(pages.left, 0, pages.width, 1e6);
            const double height = painter.boundingRect(room, Qt::TextWordWrap, line).height();
            pages.Need(height);
            painter.drawText(QRectF(pages.left, pages.y, pages.width, height), Qt::TextWordWrap,
                             line);
            pages.y += height;
            painter.setFont(font);
        };
        const Design& d = design.design;
        text(DesignTitle(design), 15.0, true);
        for (std::size_t i = 1; i < d.titles.size(); ++i)
            text(QString::fromStdString(d.titles[i]), 10.0, false);
        text(QFileInfo(QString::fromStdString(design.path)).fileName() + " — " + GearLine(design),
             8.0, false);
        pages.y += Mm(writer, 4.0);

        // The three outlines side by side, each with its caption.
        const double gap = Mm(writer, 6.0);
        const double side = (pages.width - 2 * gap) / 3.0;
        const QString captions[3] = {Tr("Crown"), Tr("Pavilion"), Tr("Side")};
        const StoneView views[3] = {StoneView::kTop, StoneView::kBottom, StoneView::kSide};
        for (int i = 0; i < 3; ++i) {
            const double x = pages.left + i * (side + gap);
            painter.drawText(QRectF(x, pages.y, side, Mm(writer, 5.0)), Qt::AlignHCenter,
                             captions[i]);
            DrawStoneView(painter, design, views[i],
                          QRectF(x, pages.y + Mm(writer, 6.0), side, side));
        }
        pages.y += side + Mm(writer, 10.0);

        text(Tr("Proportions (of the width)"), 10.0, true);
        text(ProportionLines(design).join("    "), 9.0, false);
        pages.y += Mm(writer, 4.0);
        DrawTable(pages, design);
        pages.y += Mm(writer, 4.0);
        for (const std::string& note : d.footnotes)
            text(QString::fromStdString(note), 9.0, false);
        painter.end();
    }
    if (!file.commit()) {
        error = file.errorString();
        return false;
    }
    return true;
}

}  // namespace kirameki
