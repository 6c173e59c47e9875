#pragma once

#include <string>
#include <variant>
#include <vector>

#include "platform/windowing/Events.h"

namespace bravona {

// Laid out pages: drawing primitives in twips (1/1440 inch) from the sheet's upper left corner. Plain data; preview, printer
// and PDF paint the same list.
struct TextPrimitive {
    int x = 0, y = 0, width = 0, height = 0; // the box; the text stands on one line in it, vertically centred
    std::string text;                         // as printed: fitted, with its ellipsis where it was too long
    double points = 9;
    bool bold = false;
    bool italic = false;
    bool symbol = false; // in the symbol face
    Align align = Align::left;
    Colour colour = 0;
    std::string source; // name of the control or bound column
    bool detail = false;
    int detailRow = -1; // of the page, from 0
};
struct BoxPrimitive {
    int x = 0, y = 0, width = 0, height = 0;
    Colour line = 0;
    int lineWidth = 10; // twips; 0: no outline
    bool filled = false;
    Colour fill = 0xFFFFFF;
    int radius = 0;
};
struct LinePrimitive {
    int x1 = 0, y1 = 0, x2 = 0, y2 = 0;
    Colour line = 0;
    int lineWidth = 10;
};
struct ImagePrimitive {
    int x = 0, y = 0, width = 0, height = 0; // the picture is fitted into it, its proportions kept, at the upper left
    std::string path;
    std::string source;
};
using Primitive = std::variant<BoxPrimitive, LinePrimitive, ImagePrimitive, TextPrimitive>;

struct Page {
    std::vector<Primitive> primitives;
    int detailRows = 0;
};

class Pages {
public:
    int width = 11906; // A4, twips
    int height = 16838;
    std::vector<Page> pages;
};

} // namespace bravona
