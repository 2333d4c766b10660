#pragma once

#include <QString>
#include <QStringList>
#include <vector>

#include "scene/stone_source.h"

class QPainter;
class QRectF;

namespace kirameki {

// The design's name as the cut list shows it: its first title line, else its file name.
QString DesignTitle(const OpenDesign& design);

// One row of the cutting table.
struct CuttingRow {
    QString name;          // the tier's names, else a label by its place: P1, G1, C1, T
    QString angle;         // degrees, negative below the girdle
    QString indices;       // "03-09-15-21", fractional ones as "4.5"
    QString instruction;   // the "G" text
    bool touching = true;  // whether any of its facets is a face of the stone
};
std::vector<CuttingRow> CuttingRows(const OpenDesign& design);

// The proportions as lines of "what: value", in percent of the girdle width.
QStringList ProportionLines(const OpenDesign& design);
// Gear, symmetry and refractive index in one line.
QString GearLine(const OpenDesign& design);

// Which outline of the stone to draw: from above (the crown, with facet names), from below
// (the pavilion, with facet names) or from the side.
enum class StoneView { kTop, kBottom, kSide };
// Draws the outline of the stone's faces seen from the view, fitted into the box; the
// names of the facets facing the viewer go where they fit inside their faces.
void DrawStoneView(QPainter& painter, const OpenDesign& design, StoneView view, const QRectF& box);

// Writes the cutting sheet as a PDF: titles, the outlines, the proportions, the table of
// tiers and the footnotes. Written through a temporary file; false with the reason.
bool WriteCuttingSheet(const OpenDesign& design, const QString& path, QString& error);

}  // namespace kirameki
