#include "look.h"

namespace gallery {
namespace {

// Blue and orange are those of M. Okabe and K. Ito, "Color Universal Design" (2008).
const char* const kLook = R"(
.sheet{fill:#fff}
text{font:13px "Helvetica Neue",Helvetica,Arial,"Liberation Sans",sans-serif;fill:#223344}
.small{font-size:11px}
.middle{text-anchor:middle}
.end{text-anchor:end}
.head{font-weight:bold;text-anchor:middle}
.inside{fill:#b9d7ea;stroke:#8db6d1;stroke-width:.8;stroke-linejoin:round}
.outside{fill:#f7f1e8;stroke:#ddd0bd;stroke-width:.8;stroke-linejoin:round}
.ring{fill:none;stroke:#0072b2;stroke-width:2.6;stroke-linejoin:round}
.axis{fill:none;stroke:#667788;stroke-width:1}
.faint{fill:none;stroke:#d3dbe2;stroke-width:.8}
.dashed{fill:none;stroke:#8899a8;stroke-width:1.2;stroke-dasharray:5 4}
.mark{fill:#d55e00;stroke:#fff;stroke-width:1}
.dot{fill:#0072b2;stroke:#fff;stroke-width:1}
.pale{fill:#fff;stroke:#8899a8;stroke-width:1.2}
)";

constexpr double kSampleWidth = 22;
constexpr double kGap = 7;
constexpr double kBetween = 22;

// About the width in Helvetica and its kin at the size of the key's text, in pixels.
double TextWidth(const std::string& text) {
  double width = 0;
  for (const char c : text) {
    const bool continues = (static_cast<unsigned char>(c) & 0xC0) == 0x80;  // a character of UTF-8
    width += continues                                             ? 0
             : std::string("ijl,.:|").find(c) != std::string::npos ? 3
             : std::string("ftr /-").find(c) != std::string::npos  ? 4
             : std::string("mMwW").find(c) != std::string::npos    ? 10.5
                                                                   : 7;
  }
  return width;
}

double EntryWidth(const KeyEntry& entry) { return kSampleWidth + kGap + TextWidth(entry.meaning); }

void DrawSample(svg::SvgWriter& picture, svg::Spot at, const KeyEntry& entry) {
  const double middle = at.y - 4.5;
  switch (entry.sample) {
    case KeyEntry::kArea:
      picture.Rectangle({at.x, middle - 6, kSampleWidth, 12}, entry.style);
      break;
    case KeyEntry::kLine:
      picture.Line({at.x, middle}, {at.x + kSampleWidth, middle}, entry.style);
      break;
    case KeyEntry::kDot:
      picture.Circle({at.x + kSampleWidth / 2, middle}, 4.5, entry.style);
      break;
  }
}

}  // namespace

std::string Look(const std::string& own) { return kLook + own; }

void DrawKeyEntry(svg::SvgWriter& picture, svg::Spot at, const KeyEntry& entry) {
  DrawSample(picture, at, entry);
  picture.Text({at.x + kSampleWidth + kGap, at.y}, "key", entry.meaning);
}

void DrawKey(svg::SvgWriter& picture, svg::Spot middle, const std::vector<KeyEntry>& entries) {
  double width = -kBetween;
  for (const KeyEntry& entry : entries) {
    width += EntryWidth(entry) + kBetween;
  }
  svg::Spot at{middle.x - width / 2, middle.y};
  for (const KeyEntry& entry : entries) {
    DrawKeyEntry(picture, at, entry);
    at.x += EntryWidth(entry) + kBetween;
  }
}

}  // namespace gallery
