#include <cctype>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>
#include <variant>

#include <nlohmann/json.hpp>

#include "xcode/PropertyList.h"

/// Writes the property lists in the files given as JSON, one a line, data as its digits in lower case: for
/// the comparison with another parser. A fault is written as null.

namespace {

using quillmeter::PropertyList;

nlohmann::json jsonOf(const PropertyList::Value& value) {
  if (value.isString()) return std::string(value.text());
  if (value.isArray()) {
    auto array = nlohmann::json::array();
    for (std::size_t i = 0; i < value.size(); ++i)
      array.push_back(jsonOf(value.at(i)));
    return array;
  }
  if (value.isDictionary()) {
    auto object = nlohmann::json::object();
    for (std::size_t i = 0; i < value.size(); ++i)
      object[std::string(value.key(i))] = jsonOf(*value.find(value.key(i)));
    return object;
  }
  std::string digits;
  for (const char c : value.text())
    if (std::isxdigit(static_cast<unsigned char>(c)) != 0)
      digits += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return {{"data", digits}};
}

}  // namespace

int main(int argc, char** argv) {
  for (int i = 1; i < argc; ++i) {
    std::ifstream stream(argv[i], std::ios::binary);
    const auto parsed = PropertyList::parse({std::istreambuf_iterator<char>(stream), {}});
    const auto* list = std::get_if<PropertyList>(&parsed);
    std::cout << (list != nullptr ? jsonOf(list->root()) : nlohmann::json()) << '\n';
  }
  return 0;
}
