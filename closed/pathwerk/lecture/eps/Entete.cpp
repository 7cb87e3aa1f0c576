#include "closed/pathwerk/lecture/eps/Entete.h"

#include <cstddef>
#include <cstdint>

#include "base/Texte.h"

namespace pathwerk::lecture::eps {

namespace {

constexpr std::size_t TailleEntete = 30;
constexpr std::string_view Magie = "\xC5\xD0\xD3\xC6";
constexpr std::string_view SortieDeLangue = "\x1B%-12345X";

std::uint32_t Entier(std::string_view d, std::size_t p) {
  std::uint32_t v = 0;
  for (std::size_t i = 0; i < 4; ++i) v |= std::uint32_t{base::Octet(d[p + i])} << (8 * i);
  return v;
}

bool Creux(char c) { return c == 4 || c == ' ' || c == '\r' || c == '\n' || c == '\t' || c == '\0'; }

// Job language before the program, a mark of the text's encoding, blanks and ends of transmission.
std::string_view SansEmballage(std::string_view ps) {
  for (;;) {
    if (!ps.empty() && Creux(ps.front())) {
      ps.remove_prefix(1);
    } else if (ps.starts_with(SortieDeLangue)) {
      ps.remove_prefix(SortieDeLangue.size());
    } else if (ps.starts_with("\xEF\xBB\xBF")) {
      ps.remove_prefix(3);
    } else if (ps.starts_with("@PJL")) {
      const std::size_t fin = ps.find('\n');
      ps.remove_prefix(fin == std::string_view::npos ? ps.size() : fin + 1);
    } else {
      break;
    }
  }
  for (;;) {
    if (!ps.empty() && Creux(ps.back())) {
      ps.remove_suffix(1);
    } else if (ps.ends_with(SortieDeLangue)) {
      ps.remove_suffix(SortieDeLangue.size());
    } else {
      return ps;
    }
  }
}

}  // namespace

// The binary header of files with a preview for the screen, numbers of four bytes, lowest first:
//
//   0 C5 D0 D3 C6 | 4 start, 8 length of the PostScript | 12, 16 metafile | 20, 24 TIFF | 28 checksum
std::optional<std::string_view> EpsPostScript(std::string_view data) {
  std::string_view ps = data;
  if (data.starts_with(Magie)) {
    if (data.size() < TailleEntete) return std::nullopt;
    const std::size_t debut = Entier(data, 4);
    const std::size_t longueur = Entier(data, 8);
    if (debut < TailleEntete - 2 || debut > data.size() || longueur > data.size() - debut) return std::nullopt;
    ps = data.substr(debut, longueur);
  }
  ps = SansEmballage(ps);
  if (!ps.starts_with("%!")) return std::nullopt;
  return ps;
}

}  // namespace pathwerk::lecture::eps
