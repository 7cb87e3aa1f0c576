// Reads a plot.
#include "closed/pathwerk/lecture/hpgl/Hpgl.h"

#include <algorithm>
#include <cmath>
#include <exception>
#include <optional>
#include <string>

#include "base/Texte.h"
#include "closed/pathwerk/lecture/Lignes.h"
#include "closed/pathwerk/lecture/hpgl/Lexeur.h"
#include "closed/pathwerk/lecture/hpgl/Machine.h"

namespace pathwerk::lecture::hpgl {

namespace {

// The text at a place, without control characters.
std::string Extrait(std::string_view data, std::size_t position) {
  std::string s;
  for (const char c : data.substr(std::min(position, data.size()), 24)) {
    if (base::Octet(c) < ' ') break;
    s += c;
  }
  return s;
}

bool Finis(const HpglInstruction& i) {
  return std::all_of(i.nombres.begin(), i.nombres.end(), [](double v) { return std::isfinite(v); });
}

// The number of the instruction that is out of bounds as it stands in the file, or the beginning of the instruction
// when only scale or steps carry it out; and the place on the sheet that it leads to.
std::string ValeurRefusee(std::string_view data, const HpglInstruction& i, std::optional<Vec2> place) {
  constexpr double Loin = 1e7 / MmParUnite;
  std::string s = Extrait(data, i.position);
  const auto loin = [](double v) { return !(std::fabs(v) <= Loin); };
  const auto faux = std::find_if(i.nombres.begin(), i.nombres.end(), loin);
  if (faux != i.nombres.end()) {
    std::size_t p = i.position + 2;
    std::size_t fin = p;
    for (auto k = i.nombres.begin(); k <= faux && p < data.size(); ++k) {
      p = data.find_first_of("+-.0123456789", fin);
      fin = std::min(data.find_first_not_of(".0123456789eE", std::min(p, data.size() - 1) + 1), data.size());
    }
    if (p < data.size()) s = i.Nom() + " " + std::string(data.substr(p, std::min<std::size_t>(fin - p, 24)));
  }
  if (place) s += " (" + EnTexte(place->x * MmParUnite) + " " + EnTexte(place->y * MmParUnite) + " mm)";
  return s;
}

// Would a file that ends behind this instruction end too early? A plot that is whole lifts the pen from its last
// line; one that stops behind a number may lack digits, unless the pen just went home.
bool EstCoupee(const HpglInstruction& i, bool baissee) {
  if (!baissee && !i.interrompue) return false;
  switch (NomHpgl(i.nom[0], i.nom[1])) {
    case NomHpgl('P', 'A'):
    case NomHpgl('P', 'R'):
    case NomHpgl('P', 'D'):
    case NomHpgl('P', 'U'):
    case NomHpgl('P', 'E'):
    case NomHpgl('A', 'A'):
    case NomHpgl('A', 'R'):
    case NomHpgl('A', 'T'):
    case NomHpgl('R', 'T'):
    case NomHpgl('B', 'Z'):
    case NomHpgl('B', 'R'):
      return baissee || i.nombres.empty() || !std::ranges::all_of(i.nombres, [](double v) { return v == 0; });
    case NomHpgl('L', 'B'):
    case NomHpgl('C', 'I'):
    case NomHpgl('E', 'A'):
    case NomHpgl('E', 'R'):
    case NomHpgl('E', 'W'):
      return i.interrompue;
    default:
      return false;
  }
}

// How many points a file of this size may give, at some 45 bytes of memory each. The densest plots are encoded
// lines of one step each: five bytes, and the cost of six points. The constant is for figures that a few bytes
// describe.
std::size_t PointsMax(std::size_t octets) { return 900'000 + octets * 13 / 10; }

// What tells a plot from anything else: two letters are soon found, so the instructions that no plot has must be
// the fewer.
struct Comptes {
  long traces = 0;
  long reglages = 0;
  long inconnues = 0;
  std::size_t premiereInconnue = 0;

  void Ajoute(HpglMachine::Sorte sorte, std::size_t position) {
    if (sorte == HpglMachine::Sorte::Trace) ++traces;
    if (sorte == HpglMachine::Sorte::Reglage) ++reglages;
    if (sorte == HpglMachine::Sorte::Inconnue && inconnues++ == 0) premiereInconnue = position;
  }
};

void Lit(std::string_view data, const OptionsLecture& options, Lecture& lecture) {
  HpglLexeur lexeur(data);
  HpglMachine machine(options, lecture, PointsMax(data.size()));
  HpglInstruction instruction;
  Comptes comptes;
  bool coupe = false;  // the last instruction was not whole, or left the pen in the middle of a line
  for (long nombre = 0; lexeur.Suivante(instruction); ++nombre) {
    if (options.Avancement && nombre % 4096 == 0) {
      options.Avancement(static_cast<double>(lexeur.Position()) / static_cast<double>(data.size()));
    }
    const HpglMachine::Sorte sorte = machine.Execute(instruction);
    comptes.Ajoute(sorte, instruction.position);
    coupe = EstCoupee(instruction, machine.Baissee());
    const bool horsLimites = machine.HorsLimites() || (sorte == HpglMachine::Sorte::Trace && !Finis(instruction));
    if (horsLimites || machine.TropDePoints()) {
      lecture.traits.clear();
      lecture.Refuse(horsLimites ? Erreur::Coordonnee : Erreur::Memoire, LigneDe(data, instruction.position),
                     horsLimites ? ValeurRefusee(data, instruction, machine.PlaceRefusee())
                                 : Extrait(data, instruction.position));
      return;
    }
  }
  if (comptes.traces == 0 || comptes.inconnues + lexeur.NbPerdus() > comptes.traces + comptes.reglages) {
    std::size_t ou = comptes.inconnues > 0 ? comptes.premiereInconnue : data.size();
    if (lexeur.NbPerdus() > 0) ou = std::min(ou, lexeur.PremierPerdu());
    if (ou == data.size()) ou = 0;
    lecture.traits.clear();
    lecture.Refuse(Erreur::Hpgl, LigneDe(data, ou), Extrait(data, ou));
    return;
  }
  machine.Termine();
  if (coupe || lexeur.Coupe()) lecture.rapport.Tronque = true;
  if (lexeur.NbTrames() > 0) lecture.Ignore("RASTER", lexeur.NbTrames());
}

}  // namespace

// HP-GL and HP-GL/2, 40 units to the millimetre.
void LireHpgl(std::string_view data, const OptionsLecture& options, Lecture& lecture) {
  lecture.rapport.Format = "HPGL";
  lecture.souder = true;
  try {
    Lit(data, options, lecture);
  } catch (const std::exception&) {
    lecture.traits.clear();
    lecture.Refuse(Erreur::Memoire, 0, "");
  }
}

}  // namespace pathwerk::lecture::hpgl
