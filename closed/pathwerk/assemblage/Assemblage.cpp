// From the paths of a format to the points of a drawing.
#include "closed/pathwerk/assemblage/Assemblage.h"

#include <algorithm>
#include <new>
#include <string>
#include <utility>

#include "base/Equipe.h"
#include "base/Indices.h"
#include "closed/pathwerk/assemblage/CheminsAssembles.h"
#include "closed/pathwerk/assemblage/Doublons.h"
#include "closed/pathwerk/assemblage/Jumeaux.h"
#include "closed/pathwerk/assemblage/Mesures.h"
#include "closed/pathwerk/assemblage/Niveaux.h"
#include "closed/pathwerk/assemblage/Rangement.h"
#include "closed/pathwerk/assemblage/Soudure.h"
#include "closed/pathwerk/lecture/Lignes.h"

namespace pathwerk::assemblage {

namespace {

using lecture::EnTexte;
using lecture::Lecture;
using lecture::Trait;

constexpr double EcartDoublons = 0.01;  // mm: what lies nearer over its whole length was drawn twice
constexpr std::string_view Doublon = "DUPLICATE";
constexpr std::string_view Nul = "ZERO_LENGTH";

std::int32_t Refus(Lecture& lecture, Erreur numero, std::string_view detail) {
  lecture.Refuse(numero, lecture.rapport.Ligne, detail);
  return Numero(numero);
}

// The first place of a path that isn't legible is the reason.
std::int32_t RefuseTrait(Lecture& lecture, const Trait& t) {
  const Vec2 p = *std::find_if_not(t.points.begin(), t.points.end(), EstLisible);
  lecture.rapport.Ligne = long{t.ligne};
  return Refus(lecture, Erreur::Coordonnee, EnTexte(p.x) + " " + EnTexte(p.y) + " mm");
}

void Emet(std::vector<PointTrace>& points, float x, float y, std::size_t rang) {
  points.push_back({x, y, CodePD, CodeDeRang(rang)});
}

bool TropDeChemins(Lecture& lecture, std::size_t nombre) {
  if (nombre <= NbCodes()) return false;
  Refus(lecture, Erreur::TropDeSequences, std::to_string(nombre) + " > " + std::to_string(NbCodes()));
  return true;
}

// Own files: as they stand, bit for bit.
std::int32_t EmetTelQuel(Lecture& lecture, std::vector<PointTrace>& points, std::vector<std::uint16_t>& calques) {
  for (const Trait& t : lecture.traits) {
    if (!std::all_of(t.points.begin(), t.points.end(), EstLisible)) return RefuseTrait(lecture, t);
  }
  std::size_t rang = 0;
  for (const Trait& t : lecture.traits) rang += t.points.empty() ? 0U : 1U;
  if (TropDeChemins(lecture, rang)) return Numero(lecture.rapport.Numero);
  rang = 0;
  for (const Trait& t : lecture.traits) {
    if (t.points.empty()) continue;
    calques.push_back(t.calque);
    const std::size_t debut = points.size();
    for (const Vec2 p : t.points) Emet(points, static_cast<float>(p.x), static_cast<float>(p.y), rang);
    const bool boucle = points.size() > debut + 1 && MemePlace(points[debut], points.back());
    if (t.nature != Nature::Ouvert && !boucle) Emet(points, points[debut].X, points[debut].Y, rang);
    ++rang;
  }
  return base::Compte(points.size());
}

// Paths without marks that were dropped; `bouts` keeps in step.
void Retire(CheminsAssembles& assembles, const std::vector<char>& garde, std::vector<Bouts>* bouts) {
  std::size_t k = 0;
  for (std::size_t i = 0; i < assembles.chemins.size(); ++i) {
    if (garde[i] == 0) continue;
    assembles.chemins[k] = assembles.chemins[i];
    if (bouts != nullptr) (*bouts)[k] = (*bouts)[i];
    ++k;
  }
  assembles.chemins.resize(k);
  if (bouts != nullptr) bouts->resize(k);
}

// Small drawings are put together before a thread has begun.
unsigned Fils(std::size_t points, const OptionsLecture& options) {
  constexpr std::size_t SeuilFils = 20'000;
  return points < SeuilFils ? 1 : options.Fils;
}

void RetireDoublons(Lecture& lecture, CheminsAssembles& assembles, double ecart, std::vector<Bouts>* bouts,
                    unsigned fils) {
  std::vector<char> garde;
  long doublons = MarqueDoublons(assembles, garde);
  doublons += MarqueJumeaux(assembles, ecart, garde, fils);
  if (doublons == 0) return;
  lecture.Ignore(Doublon, doublons);
  Retire(assembles, garde, bouts);
}

void RetireNuls(Lecture& lecture, CheminsAssembles& assembles) {
  std::vector<char> garde(assembles.chemins.size(), 1);
  long nuls = 0;
  for (std::size_t i = 0; i < assembles.chemins.size(); ++i) {
    if (assembles.chemins[i].nb > 1) continue;
    garde[i] = 0;
    ++nuls;
  }
  if (nuls == 0) return;
  lecture.Ignore(Nul, nuls);
  Retire(assembles, garde, nullptr);
}

std::size_t NbPoints(const std::vector<Trait>& traits) {
  std::size_t points = 0;
  for (const Trait& t : traits) points += t.points.size();
  return points;
}

// False: a coordinate is none, and the reading refused. What has been joined is held against the rest once more;
// where nothing was, all is as the first look left it.
bool FaitChemins(Lecture& lecture, const OptionsLecture& options, CheminsAssembles& assembles) {
  const double tolerance = lecture.souder ? options.ToleranceSoudure : 0;
  const unsigned fils = Fils(NbPoints(lecture.traits), options);
  TraitsRanges ranges = RangeTraits(lecture.traits, tolerance, fils);
  if (ranges.illisible != base::Nulle) {
    RefuseTrait(lecture, lecture.traits[ranges.illisible]);
    return false;
  }
  std::vector<Trait>().swap(lecture.traits);
  if (ranges.nuls > 0) lecture.Ignore(Nul, ranges.nuls);
  assembles = std::move(ranges.assembles);
  const double ecart = lecture.mesure ? std::min(options.ToleranceSoudure, EcartDoublons) : 0;
  RetireDoublons(lecture, assembles, ecart, &ranges.bouts, fils);
  if (lecture.souder && Soude(assembles, ranges.bouts, tolerance)) {
    RetireNuls(lecture, assembles);
    MesureChemins(assembles, fils);
    RetireDoublons(lecture, assembles, ecart, nullptr, fils);
  }
  return true;
}

// Depth of each path in the forest of contours; the outermost are at 0.
std::vector<std::size_t> Profondeurs(std::span<const std::size_t> parents) {
  constexpr std::size_t Inconnue = base::Nulle;
  std::vector<std::size_t> profondeur(parents.size(), Inconnue);
  std::vector<std::size_t> montee;
  for (std::size_t i = 0; i < parents.size(); ++i) {
    std::size_t k = i;
    while (k != SansParent && profondeur[k] == Inconnue) {
      montee.push_back(k);
      k = parents[k];
    }
    std::size_t p = k == SansParent ? 0 : profondeur[k] + 1;
    for (; !montee.empty(); montee.pop_back()) profondeur[montee.back()] = p++;
  }
  return profondeur;
}

// Whether a contour at that depth runs the other way round.
bool Retourne(const CheminAssemble& chemin, std::size_t profondeur) {
  const bool voulue = profondeur % 2 == 1;  // counter-clockwise
  return chemin.doubleAire != 0 && (chemin.doubleAire > 0) != voulue;
}

std::int32_t EmetAssemble(Lecture& lecture, const OptionsLecture& options, std::vector<PointTrace>& points,
                          std::vector<std::uint16_t>& calques) {
  CheminsAssembles assembles;
  if (!FaitChemins(lecture, options, assembles)) return Numero(lecture.rapport.Numero);
  if (TropDeChemins(lecture, assembles.chemins.size())) return Numero(lecture.rapport.Numero);
  const double marge = options.ToleranceSoudure > 0 ? options.ToleranceSoudure : 0;
  const std::vector<std::size_t> parents = Parents(assembles, marge);
  const std::vector<std::size_t> profondeur = Profondeurs(parents);
  const std::vector<std::size_t> ordre = OrdreDeCoupe(parents);
  std::vector<std::size_t> debuts;  // by their places in the order
  std::size_t nombre = 0;
  for (const std::size_t i : ordre) {
    debuts.push_back(nombre);
    nombre += assembles.chemins[i].nb;
    calques.push_back(assembles.chemins[i].calque);
  }
  points.resize(nombre);
  base::FaitParLots(Fils(nombre, options), ordre.size(), [&](std::size_t debut, std::size_t fin) {
    for (std::size_t rang = debut; rang < fin; ++rang) {
      const std::size_t i = ordre[rang];
      const std::span<const PointF> chemin = assembles.De(i);
      const bool retourne = Retourne(assembles.chemins[i], profondeur[i]);
      const Code2 code = CodeDeRang(rang);
      for (std::size_t k = 0; k < chemin.size(); ++k) {
        const PointF p = chemin[retourne ? chemin.size() - 1 - k : k];
        points[debuts[rang] + k] = {p.x, p.y, CodePD, code};
      }
    }
  });
  return base::Compte(points.size());
}

}  // namespace

std::int32_t Assemble(Lecture& lecture, const OptionsLecture& options, std::vector<PointTrace>& points,
                      std::vector<std::uint16_t>* calques) {
  points.clear();
  if (calques != nullptr) calques->clear();
  if (lecture.Refuse()) return Numero(lecture.rapport.Numero);
  try {
    std::vector<std::uint16_t> places;
    const std::int32_t n =
        lecture.ordreImpose ? EmetTelQuel(lecture, points, places) : EmetAssemble(lecture, options, points, places);
    if (n < 0) points.clear();
    if (n >= 0 && calques != nullptr) *calques = std::move(places);
    return n;
  } catch (const std::bad_alloc&) {
    std::vector<PointTrace>().swap(points);
    return Refus(lecture, Erreur::Memoire, "");
  }
}

}  // namespace pathwerk::assemblage
