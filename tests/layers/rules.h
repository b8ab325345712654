// The rules of the house as functions over a file's path and text, so that they can be tried on wrong
// examples.
#pragma once

#include <string>
#include <vector>

namespace zelvo::layers {

/// What is wrong with the includes of a file of src/, one complaint each. `path` is relative to src/
/// ("icsp/pic18_engine.cpp").
[[nodiscard]] std::vector<std::string> WrongIncludes(const std::string& path, const std::string& text);

/// Phrases that belong into a planning note and not into the product, one complaint each.
[[nodiscard]] std::vector<std::string> ForeignPhrases(const std::string& path, const std::string& text);

/// A complaint when a file of src/ has grown too long to be read; tables may be as long as they need.
[[nodiscard]] std::vector<std::string> TooLong(const std::string& path, const std::string& text);

}  // namespace zelvo::layers
