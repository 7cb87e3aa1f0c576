#include "closed/pathwerk/lecture/dxf/Tranches.h"

#include <algorithm>
#include <cstdint>

#include "base/Equipe.h"
#include "base/Indices.h"
#include "base/Texte.h"
#include "closed/pathwerk/lecture/dxf/Entite.h"

namespace pathwerk::lecture::dxf {

namespace {

constexpr std::string_view FinSection = "ENDSEC";

constexpr bool Blanc(char c) { return base::EstBlanc(c) || c == '\0' || c == '\r'; }

// Behind the next LF, or the end of the text.
std::size_t ApresLigne(std::string_view data, std::size_t i) {
  const std::size_t lf = data.find('\n', i);
  return lf == std::string_view::npos ? data.size() : lf + 1;
}

// The line that begins there, without blanks and without its end.
std::string_view LigneDepuis(std::string_view data, std::size_t i) {
  return base::SansBlancs(data.substr(i, ApresLigne(data, i) - i), [](char c) { return Blanc(c) || c == '\n'; });
}

// Where the line before the line at `i` begins; `i` > 0 stands behind an LF.
std::size_t LigneAvant(std::string_view data, std::size_t i) {
  const std::size_t lf = i < 2 ? std::string_view::npos : data.rfind('\n', i - 2);
  return lf == std::string_view::npos ? 0 : lf + 1;
}

// Where a group 0 with "ENDSEC" begins in [debut, fin), or nothing. Its name may stand behind.
std::optional<std::size_t> TrouveFin(std::string_view data, std::size_t debut, std::size_t fin) {
  constexpr std::size_t Regard = 64;  // bytes from a code to the end of its name
  const std::string_view zone = data.substr(0, std::min(fin + Regard, data.size()));
  for (std::size_t i = zone.find(FinSection, debut); i != std::string_view::npos;
       i = zone.find(FinSection, i + 1)) {
    std::size_t ligne = i;
    while (ligne > debut && Blanc(data[ligne - 1])) --ligne;
    if (ligne == 0 || data[ligne - 1] != '\n' || LigneDepuis(data, ligne) != FinSection) continue;
    const std::size_t code = LigneAvant(data, ligne);
    if (code >= debut && code < fin && LigneDepuis(data, code) == "0") return code;
  }
  return std::nullopt;
}

// The first capital letter but E, or `fin`. Numbers hold none, names of entities do. A block of bytes at a time,
// without a branch, so that the compiler takes many at once.
std::size_t PremiereMajuscule(std::string_view data, std::size_t i, std::size_t fin) {
  constexpr std::size_t Bloc = 64;
  const auto majuscule = [](char c) {
    const auto rang = static_cast<unsigned char>(c - 'A');
    return static_cast<unsigned char>(static_cast<unsigned char>(rang < 26) & static_cast<unsigned char>(c != 'E'));
  };
  for (; i + Bloc <= fin; i += Bloc) {
    unsigned char vues = 0;
    for (std::size_t k = 0; k < Bloc; ++k) vues = static_cast<unsigned char>(vues | majuscule(data[i + k]));
    if (vues != 0) break;
  }
  while (i < fin && majuscule(data[i]) == 0) ++i;
  return i;
}

// Where the first entity begins in [debut, fin), which stands behind an LF; nothing for none.
std::optional<std::size_t> TrouveEntite(std::string_view data, std::size_t debut, std::size_t fin) {
  for (std::size_t i = PremiereMajuscule(data, debut, fin); i < fin;
       i = PremiereMajuscule(data, std::min(ApresLigne(data, i), fin), fin)) {
    const std::size_t ligne = data.substr(0, i).rfind('\n') + 1;  // 0 for no LF
    if (ligne <= debut || GenreDe(LigneDepuis(data, ligne)) >= Genre::Rien) continue;
    const std::size_t code = LigneAvant(data, ligne);
    if (code >= debut && LigneDepuis(data, code) == "0") return code;
  }
  return std::nullopt;
}

// 1 for the last byte of a line's end: an LF, or a CR before neither LF nor CR LF.
constexpr unsigned char Termine(char c, char d, char e) {
  const auto un = [](bool b) { return static_cast<unsigned char>(b); };
  const int seul = un(c == '\r') & un(d != '\n') & (un(d != '\r') | un(e != '\n'));
  return static_cast<unsigned char>(un(c == '\n') | seul);
}

// What a thread finds in its part of the text.
struct Part {
  std::size_t debut = 0, fin = 0;     // both behind an LF, but for those of the section and of the text
  std::optional<std::size_t> entite;  // the first that begins in it
  std::optional<std::size_t> arret;   // "ENDSEC"
  long avantEntite = 0;               // line ends before that entity
  long fins = 0;                      // line ends in all, before `arret` where it stands

  void Cherche(std::string_view data) {
    arret = TrouveFin(data, debut, fin);
    const std::size_t borne = arret.value_or(fin);
    entite = TrouveEntite(data, debut, borne);
    const std::size_t milieu = entite.value_or(debut);
    avantEntite = CompteFins(data.substr(debut, milieu - debut));
    fins = avantEntite + CompteFins(data.substr(milieu, borne - milieu));
  }
};

// Behind the group at a place of the text; nothing when there is no group 0.
std::optional<LecteurGroupes::Reprise> ApresZero(std::string_view data, LecteurGroupes::Reprise place) {
  LecteurGroupes lecteur(data);
  lecteur.Va(place);
  Groupe g;
  if (lecteur.Suivant(g) != Etat::Groupe || g.code != 0) return std::nullopt;
  return lecteur.Ici();
}

std::vector<Part> Parts(std::string_view data, std::size_t debut, std::size_t octets) {
  std::vector<Part> parts;
  for (std::size_t i = debut; i < data.size();) {
    const std::size_t fin = data.size() - i <= octets ? data.size() : ApresLigne(data, i + octets);
    Part part;
    part.debut = i;
    part.fin = fin;
    parts.push_back(part);
    i = fin;
  }
  return parts;
}

}  // namespace

// A block of bytes at a time, without a branch and counted in one byte, so that the compiler takes many at once.
long CompteFins(std::string_view texte) {
  constexpr std::size_t Bloc = 128;
  constexpr std::size_t Regard = 2;  // bytes that are looked at behind the one in question
  long fins = 0;
  std::size_t i = 0;
  for (; i + Bloc + Regard <= texte.size(); i += Bloc) {
    const char* const p = texte.data() + i;
    unsigned char nombre = 0;
    for (std::size_t k = 0; k < Bloc; ++k) {
      nombre = static_cast<unsigned char>(nombre + Termine(p[k], p[k + 1], p[k + 2]));
    }
    fins += nombre;
  }
  const auto lu = [&](std::size_t k) { return k < texte.size() ? texte[k] : ' '; };
  for (; i < texte.size(); ++i) fins += Termine(texte[i], lu(i + 1), lu(i + 2));
  return fins;
}

std::optional<SectionCoupee> CoupeSection(std::string_view data, LecteurGroupes::Reprise debut,
                                          const Decoupe& decoupe) {
  if (decoupe.octets == 0 || data.size() - debut.position < 2 * decoupe.octets) return std::nullopt;
  std::vector<Part> parts = Parts(data, debut.position, decoupe.octets);
  base::FaitTout(decoupe.fils, parts.size(), [&](std::size_t i) { parts[i].Cherche(data); });
  SectionCoupee section;
  LecteurGroupes::Reprise ici = debut;
  section.tranches.push_back({debut, {}});
  for (const Part& part : parts) {
    if (part.entite && part.debut != debut.position) {
      const LecteurGroupes::Reprise place{*part.entite, ici.ligne + part.avantEntite};
      if (const auto apres = ApresZero(data, place)) {
        section.tranches.back().suite = *apres;
        section.tranches.push_back({place, {}});
      }
    }
    ici.ligne += part.fins;
    if (!part.arret) continue;
    section.fin = {*part.arret, ici.ligne};
    const auto apres = ApresZero(data, section.fin);
    if (!apres) return std::nullopt;
    section.tranches.back().suite = *apres;
    return section;
  }
  return std::nullopt;
}

}  // namespace pathwerk::lecture::dxf
