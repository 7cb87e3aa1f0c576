// Codes for paths that come to a drawing.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <unordered_set>

#include "core/Document.h"

namespace ovelin {

// Codes behind the greatest of the drawing. Where the count leaves the characters that a project can hold, or meets
// a code that is taken, the first free one of the library's codes stands in.
class CodesNeufs {
 public:
  explicit CodesNeufs(const Document& document);
  // Nothing when two characters can name no more paths.
  std::optional<Code2> Suivant();

 private:
  Code2 dernier_ = CodeAucun;
  std::unordered_set<std::uint32_t> pris_;
  std::size_t rang_ = 0;
};

}  // namespace ovelin
