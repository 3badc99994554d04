#include "look.h"

namespace gallery {
namespace {

// Blue and orange are those of M. Okabe and K. Ito, "Color Universal Design" (2008).
const char* const kLook = R"(
.sheet{fill:#fff}
text{font:13px "DejaVu Sans",Helvetica,Arial,sans-serif;fill:#223344}
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
constexpr double kBetween = 20;
constexpr double kLetterWidth = 7;  // on average, at the size of the key's text

// Bytes that begin a character of UTF-8.
double Letters(const std::string& text) {
  int count = 0;
  for (const char c : text) {
    count += (static_cast<unsigned char>(c) & 0xC0) == 0x80 ? 0 : 1;
  }
  return count;
}

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

void DrawKey(svg::SvgWriter& picture, svg::Spot at, const std::vector<KeyEntry>& entries) {
  for (const KeyEntry& entry : entries) {
    DrawSample(picture, at, entry);
    at.x += kSampleWidth + kGap;
    picture.Text(at, "key", entry.meaning);
    at.x += Letters(entry.meaning) * kLetterWidth + kBetween;
  }
}

}  // namespace gallery
