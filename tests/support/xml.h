#pragma once

// Reads as much XML as pictures are written in: elements, quoted attributes, text with character
// references. Comments, declarations and CDATA count as faults.

#include <map>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace xml {

struct Element {
  std::string name;
  std::map<std::string, std::string> attributes;
};

class Reader {
 public:
  explicit Reader(std::string_view document) : rest_(document) {}

  /// All elements in the order in which they begin. Throws std::runtime_error if the document is
  /// not well-formed.
  std::vector<Element> Read() {
    for (std::string text = TakeUpTo("<"); !rest_.empty(); text = TakeUpTo("<")) {
      Require(!open_.empty() || (text.empty() && elements_.empty()));  // there is one root
      CheckText(text);
      Take("<");
      if (Take("/")) {
        Require(TakeUpTo(">") == open_.back());
        open_.pop_back();
      } else {
        Open();
      }
      Require(Take(">"));
    }
    Require(open_.empty() && !elements_.empty());
    return std::move(elements_);
  }

 private:
  void Require(bool isWellFormed) const {
    if (!isWellFormed) {
      throw std::runtime_error("a fault before \"" + std::string(rest_.substr(0, 40)) + "\"");
    }
  }

  bool Take(std::string_view token) {
    const bool there = rest_.substr(0, token.size()) == token;
    rest_.remove_prefix(there ? token.size() : 0);
    return there;
  }

  std::string TakeUpTo(const char* ends) {
    const std::string_view taken = rest_.substr(0, rest_.find_first_of(ends));
    rest_.remove_prefix(taken.size());
    return std::string(taken);
  }

  void CheckText(const std::string& text) const {
    Require(text.find_first_of("<>") == std::string::npos);
    for (std::size_t at = text.find('&'); at != std::string::npos; at = text.find('&', at + 1)) {
      const std::string reference = text.substr(at, text.find(';', at) - at);
      Require(reference == "&amp" || reference == "&lt" || reference == "&gt" ||
              reference == "&quot");
    }
  }

  void Open() {
    Element element{TakeUpTo(" />"), {}};
    Require(!element.name.empty());
    while (Take(" ")) {
      const std::string name = TakeUpTo(" =/><&\"");
      Require(Take("=\""));
      const std::string value = TakeUpTo("\"");
      CheckText(value);
      Require(Take("\"") && element.attributes.emplace(name, value).second);
    }
    if (!Take("/")) {
      open_.push_back(element.name);
    }
    elements_.push_back(std::move(element));
  }

  std::string_view rest_;
  std::vector<Element> elements_;
  std::vector<std::string> open_;
};

}  // namespace xml
