// Reads EPS: what a drawing in PostScript would paint, as paths in millimetres of the default user space.
//
// Fills give their outlines, strokes their centre lines, text the outlines of its letters. Clip paths and images
// are left out and counted.
#include "closed/pathwerk/lecture/eps/Eps.h"

#include <algorithm>
#include <exception>
#include <random>

#include "base/Indices.h"
#include "closed/pathwerk/lecture/eps/Chemins.h"
#include "closed/pathwerk/lecture/eps/Entete.h"
#include "closed/pathwerk/lecture/eps/Prologue.h"

namespace pathwerk::lecture::eps {

namespace {

// How many points a file of this size may give, at some 45 bytes of memory each: a line takes five bytes and up, a
// letter of a text one byte for a whole outline, so there is a generous constant.
std::size_t PointsMax(std::size_t octets) { return 900'000 + octets * 13 / 10; }

std::string Jeton() {
  std::random_device hasard;
  std::string t;
  for (int i = 0; i < 16; ++i) t += "0123456789abcdef"[hasard() % 16];
  return t;
}

// Line of a byte of the PostScript, counted in the file. 0: unknown.
long LigneDe(std::string_view data, std::string_view ps, long position) {
  if (position < 0) return 0;
  const std::size_t avant = base::Indice(ps.data() - data.data());
  const std::size_t p = std::min(data.size(), avant + base::Indice(position));
  const std::string_view debut = data.substr(0, p);
  const char fin = debut.find('\n') == std::string_view::npos ? '\r' : '\n';
  // The reader stands behind the blank that ends the offending word.
  const long lignes = std::count(debut.begin(), debut.end(), fin);
  return std::max(1L, debut.ends_with(fin) ? lignes : lignes + 1);
}

// A drawing may end itself with "quit" or "stop". What stands behind that was never drawn, comments and the control
// bytes of a printer's channel apart.
bool ResteADessiner(std::string_view ps, const EpsChemins& chemins) {
  if (!chemins.FinDite()) return true;
  if (chemins.Position() < 0) return false;
  std::string_view reste = ps.substr(std::min(ps.size(), base::Indice(chemins.Position())));
  while (!reste.empty()) {
    const std::size_t fin = std::min(reste.find_first_of("\r\n"), reste.size());
    const std::size_t mot = reste.find_first_not_of(" \t\f\r\n\004\032" + std::string(1, '\0'));
    if (mot < fin && reste[mot] != '%') return true;
    reste.remove_prefix(std::min(fin + 1, reste.size()));
  }
  return false;
}

void Lit(std::string_view data, const OptionsLecture& options, const EpsMoyens& moyens, Lecture& lecture) {
  const std::optional<std::string_view> ps = EpsPostScript(data);
  if (!ps) {
    lecture.Refuse(Erreur::EpsEntete, 1, data.starts_with("\xC5\xD0\xD3\xC6") ? "C5D0D3C6" : data.substr(0, 0));
    return;
  }
  const std::string jeton = Jeton();
  EpsChemins chemins(jeton, options, lecture, PointsMax(data.size()));
  // The blank behind the last word keeps the file open, and its place known, when that word is the wrong one.
  const std::string dessin = std::string(*ps) + "\n";
  const EpsFin fin = LanceGs(
      moyens, EpsPrologue(jeton, EpsDessin), dessin, [&](std::string_view m) { return chemins.Recoit(m); },
      options.Avancement);
  if (lecture.Refuse()) return;
  Erreur numero = fin.numero;
  std::string detail = fin.detail;
  long ligne = 0;
  if (numero == Erreur::Aucune && !chemins.NomErreur().empty()) {
    numero = Erreur::GsErreur;
    detail = chemins.NomErreur();
    ligne = LigneDe(data, *ps, chemins.Position());
  } else if (numero == Erreur::Aucune && fin.code != 0) {
    numero = Erreur::GsErreur;
    detail = "exit " + std::to_string(fin.code);
  }
  if (numero == Erreur::Aucune) {
    lecture.rapport.Tronque = ResteADessiner(*ps, chemins);
    return;
  }
  lecture.traits.clear();
  lecture.Refuse(numero, ligne, detail);
}

}  // namespace

void LireEpsAvec(std::string_view data, const OptionsLecture& options, const EpsMoyens& moyens, Lecture& lecture) {
  lecture.rapport.Format = "EPS";
  lecture.souder = true;  // strokes often come as loose segments
  try {
    Lit(data, options, moyens, lecture);
  } catch (const std::exception&) {
    lecture.traits.clear();
    lecture.Refuse(Erreur::Memoire, 0, "");
  }
}

void LireSortieEps(std::string_view sortie, std::string_view jeton, const OptionsLecture& options,
                   Lecture& lecture) {
  lecture.rapport.Format = "EPS";
  try {
    EpsChemins chemins(jeton, options, lecture, PointsMax(sortie.size()));
    chemins.Recoit(sortie);
  } catch (const std::exception&) {
    lecture.traits.clear();
    lecture.Refuse(Erreur::Memoire, 0, "");
  }
}

void LireEps(std::string_view data, const OptionsLecture& options, Lecture& lecture) {
  EpsMoyens moyens;
  // A large drawing may print as much as it holds, and some times more.
  moyens.volume = std::max(moyens.volume, 8 * data.size());
  LireEpsAvec(data, options, moyens, lecture);
}

}  // namespace pathwerk::lecture::eps
