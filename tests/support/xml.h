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
  std::string text;  ///< all that stands before the first child or the end, references as written

  std::string Get(const std::string& attribute) const {
    const auto found = attributes.find(attribute);
    return found == attributes.end() ? std::string() : found->second;
  }
};

/// What is wrong with a document that is not well-formed.
struct Fault : std::runtime_error {
  using std::runtime_error::runtime_error;
};

class Reader {
 public:
  explicit Reader(std::string_view document) : rest_(document) {}

  /// All elements in the order in which they begin. Throws Fault.
  std::vector<Element> Read() {
    do {
      if (!Take("<")) {
        Fail("text outside of the root");
      }
      if (Take("/")) {
        Close();
      } else {
        Open();
      }
      const std::string text = Text();
      if (!open_.empty() && elements_.back().text.empty()) {
        elements_.back().text = text;
      }
    } while (!open_.empty());
    if (rest_.find_first_not_of(" \n") != std::string_view::npos) {
      Fail("something behind the root");
    }
    return std::move(elements_);
  }

 private:
  [[noreturn]] void Fail(const std::string& reason) const {
    throw Fault(reason + " before \"" + std::string(rest_.substr(0, 40)) + "\"");
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

  std::string Name() {
    const std::string name = TakeUpTo(" =/>\"<&");
    if (name.empty()) {
      Fail("no name");
    }
    return name;
  }

  void CheckReferences(const std::string& text) const {
    for (std::size_t at = text.find('&'); at != std::string::npos; at = text.find('&', at + 1)) {
      const std::string reference = text.substr(at, text.find(';', at) - at);
      if (reference != "&amp" && reference != "&lt" && reference != "&gt" && reference != "&quot") {
        Fail("a bare ampersand");
      }
    }
  }

  std::string Text() {
    std::string text = TakeUpTo("<>");
    if (rest_.substr(0, 1) == ">") {
      Fail("a bare bracket");
    }
    CheckReferences(text);
    return text;
  }

  void Open() {
    Element element;
    element.name = Name();
    while (Take(" ")) {
      const std::string name = Name();
      if (!Take("=\"")) {
        Fail("an attribute without a value");
      }
      const std::string value = TakeUpTo("\"<");
      CheckReferences(value);
      if (!Take("\"") || !element.attributes.emplace(name, value).second) {
        Fail("an attribute that does not end, or stands twice");
      }
    }
    const bool empty = Take("/");
    if (!Take(">")) {
      Fail("a tag that does not end");
    }
    if (!empty) {
      open_.push_back(element.name);
    }
    elements_.push_back(std::move(element));
  }

  void Close() {
    const std::string name = Name();
    if (open_.empty() || open_.back() != name || !Take(">")) {
      Fail("the wrong end of an element");
    }
    open_.pop_back();
  }

  std::string_view rest_;
  std::vector<Element> elements_;
  std::vector<std::string> open_;
};

}  // namespace xml
