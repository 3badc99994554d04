#pragma once

// Writes the few SVG elements that the pictures of the examples are made of. What they look like is
// the style sheet's affair: every element names a class.

#include <ostream>
#include <string>
#include <vector>

namespace svg {

/// A place on paper in pixels from the upper left corner.
struct Spot {
  double x = 0;
  double y = 0;
};

/// An upright rectangle on paper.
struct Box {
  double x = 0;
  double y = 0;
  double width = 0;
  double height = 0;
};

/// Text as XML content: markup escaped, and '?' for every byte that XML cannot hold.
std::string EscapeXml(const std::string& text);

class SvgWriter {
 public:
  /// Begins a drawing of the given size on white ground.
  SvgWriter(std::ostream& out, double width, double height, const std::string& styleSheet);

  /// Everything up to the matching CloseGroup is drawn inside `box` only.
  void OpenClippedGroup(const Box& box);
  void CloseGroup();

  void Rectangle(const Box& box, const std::string& style);
  void Line(const Spot& from, const Spot& to, const std::string& style);
  /// A title is shown to whoever points at the element.
  void Circle(const Spot& centre, double radius, const std::string& style,
              const std::string& title = {});
  void Polygon(const std::vector<Spot>& corners, const std::string& style,
               const std::string& title = {});
  /// The corners in line; nothing joins the last to the first.
  void Polyline(const std::vector<Spot>& corners, const std::string& style);
  void Text(const Spot& at, const std::string& style, const std::string& text);

  /// Ends the drawing.
  void Finish();

 private:
  void Close(const char* element, const std::string& title);

  std::ostream& out_;
  int clips_ = 0;
};

}  // namespace svg
