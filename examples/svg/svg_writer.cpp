#include "svg_writer.h"

#include <charconv>
#include <cmath>

namespace svg {
namespace {

// Up to two decimals, hundredths of a pixel, with a point for the decimal mark in every locale.
// What lies absurdly far off the paper, or nowhere, is drawn at its far corner.
std::string Number(double value) {
  constexpr double kFarthest = 1e6;
  const double shown = std::abs(value) < kFarthest ? value : kFarthest;
  char buffer[32];
  char* end = std::to_chars(buffer, buffer + sizeof buffer, shown, std::chars_format::fixed, 2).ptr;
  while (end[-1] == '0') {
    --end;
  }
  if (end[-1] == '.') {
    --end;
  }
  const std::string text(buffer, end);
  return text == "-0" ? "0" : text;
}

std::string Attribute(const char* name, double value) {
  return std::string(" ") + name + "=\"" + Number(value) + "\"";
}

std::string Attribute(const std::vector<Spot>& corners) {
  std::string points;
  for (const Spot& corner : corners) {
    points += (points.empty() ? "" : " ") + Number(corner.x) + "," + Number(corner.y);
  }
  return " points=\"" + points + "\"";
}

std::string ClassAttribute(const std::string& style) { return " class=\"" + style + "\""; }

std::string Attributes(const Box& box) {
  return Attribute("x", box.x) + Attribute("y", box.y) + Attribute("width", box.width) +
         Attribute("height", box.height);
}

// Length of the UTF-8 sequence that begins at text[i], or 0 if there is no sound one.
std::size_t SequenceLength(const std::string& text, std::size_t i) {
  const unsigned lead = static_cast<unsigned char>(text[i]);
  const std::size_t length = lead < 0x80 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
  if ((lead >= 0x80 && lead < 0xC2) || lead > 0xF4 || i + length > text.size()) {
    return 0;
  }
  unsigned code = length == 1 ? lead : lead & (0x7Fu >> length);
  for (std::size_t k = 1; k < length; ++k) {
    const unsigned byte = static_cast<unsigned char>(text[i + k]);
    if ((byte & 0xC0u) != 0x80u) {
      return 0;
    }
    code = (code << 6) | (byte & 0x3Fu);
  }
  const bool overlong = (length == 3 && code < 0x800) || (length == 4 && code < 0x10000);
  const bool surrogate = code >= 0xD800 && code < 0xE000;
  const bool character = code >= 0x20 && code != 0xFFFE && code != 0xFFFF && code <= 0x10FFFF;
  return !overlong && !surrogate && character ? length : 0;
}

}  // namespace

std::string EscapeXml(const std::string& text) {
  std::string escaped;
  for (std::size_t i = 0; i < text.size();) {
    const std::size_t length = SequenceLength(text, i);
    if (length == 0) {
      escaped += '?';
    } else if (text[i] == '&') {
      escaped += "&amp;";
    } else if (text[i] == '<') {
      escaped += "&lt;";
    } else if (text[i] == '>') {
      escaped += "&gt;";
    } else {
      escaped.append(text, i, length);
    }
    i += length == 0 ? 1 : length;
  }
  return escaped;
}

SvgWriter::SvgWriter(std::ostream& out, double width, double height, const std::string& styleSheet)
    : out_(out) {
  const std::string size = Attribute("width", width) + Attribute("height", height);
  out_ << "<svg xmlns=\"http://www.w3.org/2000/svg\"" << size << " viewBox=\"0 0 " << Number(width)
       << ' ' << Number(height) << "\">\n<style>" << styleSheet << "</style>\n<rect" << size
       << " fill=\"white\"/>\n";
}

void SvgWriter::OpenClippedGroup(const Box& box) {
  ++clips_;
  out_ << "<clipPath id=\"clip" << clips_ << "\"><rect" << Attributes(box)
       << "/></clipPath>\n<g clip-path=\"url(#clip" << clips_ << ")\">\n";
}

void SvgWriter::CloseGroup() { out_ << "</g>\n"; }

void SvgWriter::Rectangle(const Box& box, const std::string& style) {
  out_ << "<rect" << Attributes(box) << ClassAttribute(style) << "/>\n";
}

void SvgWriter::Line(const Spot& from, const Spot& to, const std::string& style) {
  out_ << "<line" << Attribute("x1", from.x) << Attribute("y1", from.y) << Attribute("x2", to.x)
       << Attribute("y2", to.y) << ClassAttribute(style) << "/>\n";
}

void SvgWriter::Circle(const Spot& centre, double radius, const std::string& style,
                       const std::string& title) {
  out_ << "<circle" << Attribute("cx", centre.x) << Attribute("cy", centre.y)
       << Attribute("r", radius) << ClassAttribute(style);
  Close("circle", title);
}

void SvgWriter::Polygon(const std::vector<Spot>& corners, const std::string& style,
                        const std::string& title) {
  out_ << "<polygon" << Attribute(corners) << ClassAttribute(style);
  Close("polygon", title);
}

void SvgWriter::Polyline(const std::vector<Spot>& corners, const std::string& style) {
  out_ << "<polyline" << Attribute(corners) << ClassAttribute(style);
  Close("polyline", {});
}

void SvgWriter::Text(const Spot& at, const std::string& style, const std::string& text) {
  out_ << "<text" << Attribute("x", at.x) << Attribute("y", at.y) << ClassAttribute(style) << '>'
       << EscapeXml(text) << "</text>\n";
}

void SvgWriter::Finish() { out_ << "</svg>\n"; }

void SvgWriter::Close(const char* element, const std::string& title) {
  if (title.empty()) {
    out_ << "/>\n";
  } else {
    out_ << "><title>" << EscapeXml(title) << "</title></" << element << ">\n";
  }
}

}  // namespace svg
