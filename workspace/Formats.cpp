#include "workspace/Formats.h"

#include <algorithm>

#include "closed/Pathwerk.h"

namespace ovelin {

namespace {

// As help lists them.
std::vector<pathwerk::FormatConnu> EnOrdre() {
  auto formats = pathwerk::Formats();
  std::sort(formats.begin(), formats.end(),
            [](const pathwerk::FormatConnu& a, const pathwerk::FormatConnu& b) { return a.Rang < b.Rang; });
  return formats;
}

}  // namespace

std::string MotifDessins() {
  std::string motif;
  for (const pathwerk::FormatConnu& f : pathwerk::Formats()) {
    for (const std::string_view e : f.Extensions) motif += (motif.empty() ? "*." : "; *.") + std::string(e);
  }
  return motif;
}

bool EstProgramme(std::string_view extension) { return extension == "NC" || extension == "ISO"; }

bool SeDepose(std::string_view extension) {
  const auto formats = pathwerk::Formats();
  return std::any_of(formats.begin(), formats.end(), [extension](const pathwerk::FormatConnu& f) {
    return std::find(f.Extensions.begin(), f.Extensions.end(), extension) != f.Extensions.end();
  });
}

std::vector<std::string_view> ExtensionsLues() {
  std::vector<std::string_view> extensions;
  for (const pathwerk::FormatConnu& f : EnOrdre()) {
    extensions.insert(extensions.end(), f.Extensions.begin(), f.Extensions.end());
  }
  return extensions;
}

std::vector<std::string_view> ExtensionsArgument() {
  std::vector<std::string_view> extensions;
  for (const pathwerk::FormatConnu& f : EnOrdre()) {
    if (!f.Argument.empty()) extensions.push_back(f.Argument);
  }
  return extensions;
}

std::string EnListe(const std::vector<std::string_view>& extensions) {
  std::string liste;
  for (std::size_t i = 0; i < extensions.size(); ++i) {
    if (i > 0) liste += i + 1 < extensions.size() ? ", " : " or ";
    liste += extensions[i];
  }
  return liste;
}

}  // namespace ovelin
