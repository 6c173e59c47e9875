#pragma once

#include <QPainter>
#include <string>

#include "platform/reports/Pages.h"

namespace bravona {

// Paints a laid out page, the same for preview, printer and PDF. The painter's unit is a twip by the time a page is
// painted.
namespace pagePainter {

// `search`: its places are marked, without regard to case; empty for none.
void paint(QPainter& painter, const Page& page, const std::string& search = {});
// Scales the painter so that the page fills `area` (device units), its proportions kept.
void fit(QPainter& painter, const Pages& pages, const QRectF& area);
// The face of the reports at a size in points, in twips.
QFont face(double points, bool bold, bool italic);

}  // namespace pagePainter

}  // namespace bravona
