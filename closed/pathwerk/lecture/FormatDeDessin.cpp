#include "closed/pathwerk/lecture/FormatDeDessin.h"

#include <algorithm>
#include <array>

#include "closed/pathwerk/lecture/Lignes.h"

namespace pathwerk::lecture {

namespace {

// Behind a byte order mark.
std::string_view SansMarque(std::string_view data) {
  if (data.starts_with("\xEF\xBB\xBF")) data.remove_prefix(3);
  return data;
}

}  // namespace

bool EstEps(std::string_view data) {
  if (data.starts_with("\xC5\xD0\xD3\xC6")) return true;  // DOS header
  if (data.starts_with("\x04")) data.remove_prefix(1);    // of a printer's job
  return data.starts_with("%!PS");
}

// The outermost element, with or without a prefix, behind what may stand before it; or what is so packed, so that
// the refusal names it.
bool EstSvg(std::string_view data) {
  if (data.starts_with("\x1F\x8B")) return true;
  data = SansMarque(data).substr(0, 8192);
  const std::size_t debut = data.find_first_not_of(" \t\r\n");
  if (debut == std::string_view::npos || data[debut] != '<') return false;
  for (std::size_t i = data.find("svg", debut); i != std::string_view::npos; i = data.find("svg", i + 3)) {
    const std::size_t element = data.find_last_of("<>!", i);
    const char apres = i + 3 < data.size() ? data[i + 3] : ' ';
    const bool fin = EstBlanc(apres) || apres == '>' || apres == '/' || apres == '\r' || apres == '\n';
    const bool nom = element + 1 == i || data[i - 1] == ':';
    if (data[element] == '<' && nom && fin &&
        data.substr(element, i - element).find(' ') == std::string_view::npos) {
      return true;
    }
  }
  return false;
}

bool EstPdf(std::string_view data) { return data.starts_with("%PDF-"); }

// A group code 0 or 999 alone on the first line with text, and behind it what opens a DXF.
bool EstDxf(std::string_view data) {
  data = SansMarque(data);
  if (data.starts_with("AutoCAD Binary DXF")) return true;
  Lignes lignes(data);
  std::string_view ligne;
  while (lignes.Suivante(ligne)) {
    ligne = SansBlancs(ligne);
    if (ligne.empty()) continue;
    if (ligne == "999") return true;
    return ligne == "0" && lignes.Suivante(ligne) && SansBlancs(ligne) == "SECTION";
  }
  return false;
}

bool EstExcellon(std::string_view data) {
  Lignes lignes(SansMarque(data));
  std::string_view ligne;
  for (int k = 0; k < 200 && lignes.Suivante(ligne); ++k) {
    ligne = SansBlancs(ligne);
    if (ligne == "M48") return true;
    if (!ligne.empty() && ligne[0] != ';' && ligne != "%") return false;
  }
  return false;
}

// Behind the comment (CO, quoted or up to the next ";") that begins at `i`; `i` when it doesn't end.
std::size_t FinCommentaire(std::string_view data, std::size_t i) {
  const std::size_t texte = std::min(data.find_first_not_of(" \t\r\n", i + 2), data.size());
  std::size_t fin = std::string_view::npos;
  if (texte < data.size() && data[texte] == '"') fin = data.find('"', texte + 1);
  fin = data.find(';', fin == std::string_view::npos ? texte : fin);
  return fin == std::string_view::npos ? i : fin + 1;
}

// Behind what switches a printer over (escape sequences) and comments: a plotter instruction of two letters.
bool EstHpgl(std::string_view data) {
  data = SansMarque(data).substr(0, 4096);
  std::size_t i = 0;
  while (i < data.size()) {
    if (data[i] == '\x1B') {
      while (i < data.size() && !(data[i] >= 'A' && data[i] <= 'Z') && data[i] != '@') ++i;
      if (i + 1 < data.size() && data[i] == '@') i += 5;  // "%-12345X@PJL" line by line
      ++i;
    } else if (data.substr(i).starts_with("@PJL")) {
      i = data.find('\n', i);
      if (i == std::string_view::npos) return false;
    } else if (data.substr(i).starts_with("CO") && FinCommentaire(data, i) > i) {
      i = FinCommentaire(data, i);
    } else if (data[i] == ';' || EstBlanc(data[i]) || data[i] == '\r' || data[i] == '\n') {
      ++i;
    } else {
      break;
    }
  }
  constexpr std::array Instructions = {"IN", "DF", "PU", "PD", "PA", "SP", "IP",
                                       "SC", "PR", "BP", "PS", "VS", "RO", "NP"};
  const auto connue = [&](std::string_view t) {
    return std::any_of(Instructions.begin(), Instructions.end(), [&](const char* k) { return t.starts_with(k); });
  };
  const std::string_view tete = data.substr(std::min(i, data.size()));
  if (tete.size() < 3 || !connue(tete)) return false;
  const bool lettre = (tete[2] >= 'a' && tete[2] <= 'z') || (tete[2] >= 'A' && tete[2] <= 'Z');
  return !lettre || connue(tete.substr(2));  // "INSP1" is a plot, "PDF" and "INside" are none
}

// Two numbers on one of the first lines.
bool EstDat(std::string_view data) {
  data = SansMarque(data);
  if (data.substr(0, 4096).find('\0') != std::string_view::npos) return false;
  Lignes lignes(data);
  std::string_view ligne;
  for (int k = 0; k < 20 && lignes.Suivante(ligne); ++k) {
    ligne = SansBlancs(ligne);
    const std::size_t fin = ligne.find_first_of(" \t;,");
    if (fin == std::string_view::npos || !LitReel(ligne.substr(0, fin))) continue;
    std::string_view reste = ligne.substr(fin);
    reste.remove_prefix(std::min(reste.find_first_not_of(" \t;,"), reste.size()));
    if (LitReel(reste.substr(0, reste.find_first_of(" \t;")))) return true;
  }
  return false;
}

}  // namespace pathwerk::lecture
