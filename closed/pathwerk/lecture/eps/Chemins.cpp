// Reader of the printed paths. The output is not trusted: the drawing prints into it too, and a path that is broken
// is left out as a whole.
#include "closed/pathwerk/lecture/eps/Chemins.h"

#include <charconv>
#include <cmath>
#include <span>
#include <utility>

#include "closed/pathwerk/commun/Courbes.h"
#include "closed/pathwerk/lecture/eps/Prologue.h"

namespace pathwerk::lecture::eps {

namespace {

constexpr double MmParPas = 25.4 / 72 / EpsPasParPoint;
constexpr std::size_t LigneMax = 256;
constexpr double LimiteCoordonnee = 1e7;  // mm

// "12 -7 ..." into places; false unless there are exactly that many whole numbers.
bool LitPoints(std::string_view texte, std::span<Vec2> points) {
  const char* p = texte.data();
  const char* const fin = texte.data() + texte.size();
  for (Vec2& v : points) {
    for (double* const c : {&v.x, &v.y}) {
      while (p != fin && *p == ' ') ++p;
      long long n = 0;
      const auto [apres, erreur] = std::from_chars(p, fin, n);
      if (erreur != std::errc{}) return false;
      *c = static_cast<double>(n) * MmParPas;
      p = apres;
    }
  }
  while (p != fin && (*p == ' ' || *p == '\r')) ++p;
  return p == fin;
}

}  // namespace

EpsChemins::EpsChemins(std::string_view jeton, const OptionsLecture& options, Lecture& lecture,
                       std::size_t pointsMax)
    : marque_("\001" + std::string(jeton) + " "),
      fleche_(options.Fleche),
      lecture_(lecture),
      pointsMax_(pointsMax) {}

bool EpsChemins::Recoit(std::string_view morceau) {
  while (!morceau.empty() && !arrete_) {
    const std::size_t fin = morceau.find('\n');
    const std::string_view debut = morceau.substr(0, fin);
    if (fin != std::string_view::npos && reste_.empty() && !tropLongue_ && debut.size() <= LigneMax) {
      Ligne(debut);
    } else {
      // A record's line is short; more than that is the drawing's own print and need not be kept.
      tropLongue_ = tropLongue_ || reste_.size() + debut.size() > LigneMax;
      if (tropLongue_) {
        reste_.clear();
      } else {
        reste_ += debut;
      }
      if (fin == std::string_view::npos) break;
      if (tropLongue_) {
        Casse();
      } else {
        Ligne(reste_);
      }
      reste_.clear();
      tropLongue_ = false;
    }
    morceau.remove_prefix(fin + 1);
  }
  return !arrete_;
}

void EpsChemins::Ligne(std::string_view ligne) {
  if (ligne.starts_with(marque_)) {
    Enregistrement(ligne.substr(marque_.size()));
  } else if (sorte_ != 0 && !ligne.empty()) {
    Chemin(ligne);
  }
}

void EpsChemins::Enregistrement(std::string_view texte) {
  if (texte == "E") {
    if (sorte_ != 0) FinitSousChemin(false);
    sorte_ = 0;
    return;
  }
  Casse();  // a path that has not come to its end
  if (texte == "F" || texte == "S" || texte == "R") {
    sorte_ = texte[0];
  } else if (texte.starts_with("Z ")) {
    finDite_ = true;
    LitPosition(texte.substr(2));
  } else if (texte.starts_with("I ")) {
    // Few kinds exist; what else claims to be one is cut short.
    lecture_.Ignore(lecture_.rapport.Ignores.size() < 32 ? texte.substr(2, 24) : "?");
  } else if (texte.starts_with("X ")) {
    const std::size_t blanc = texte.rfind(' ');
    nomErreur_ = std::string(texte.substr(2, blanc > 2 ? blanc - 2 : std::string_view::npos));
    finDite_ = true;
    LitPosition(texte.substr(blanc + 1));
  }
}

void EpsChemins::LitPosition(std::string_view texte) {
  std::from_chars(texte.data(), texte.data() + texte.size(), position_);
}

void EpsChemins::Chemin(std::string_view ligne) {
  std::array<Vec2, 3> p;
  const std::string_view nombres = ligne.substr(1);
  switch (ligne[0]) {
    case 'm':
      if (!LitPoints(nombres, std::span(p).first(1))) break;
      FinitSousChemin(false);
      Depart(p[0]);
      return;
    case 'l':
      if (courant_.empty() || !LitPoints(nombres, std::span(p).first(1))) break;
      bouge_ = true;
      ++lignes_;
      // The page outline of the prologue: its first corner three times.
      if (lignes_ == 2 && courant_.size() == 1 && p[0] == courant_.back()) coinTriple_ = true;
      if (p[0] != courant_.back()) courant_.push_back(p[0]);
      return;
    case 'c':
      if (courant_.empty() || !LitPoints(nombres, p)) break;
      bouge_ = true;
      AjouteBezier(courant_, p[0], p[1], p[2], fleche_);
      if (points_ + courant_.size() > pointsMax_) Abandonne(Erreur::Memoire, "");
      return;
    case 'h': {
      if (courant_.empty() || !LitPoints(nombres, {})) break;
      const Vec2 depart = courant_.front();
      FinitSousChemin(true);
      Depart(depart);  // a line may go on from here
      return;
    }
    default:
      break;
  }
  Casse();
}

// The path being read is broken; what follows up to the next record is nothing.
void EpsChemins::Casse() {
  courant_.clear();
  sorte_ = 0;
}

void EpsChemins::Depart(Vec2 p) {
  courant_.assign(1, p);
  bouge_ = false;
  coinTriple_ = false;
  lignes_ = 0;
}

// A fill closes its subpaths by itself. A subpath without extent paints nothing, except the dot of a round cap.
void EpsChemins::FinitSousChemin(bool ferme) {
  std::vector<Vec2> points = std::exchange(courant_, {});
  if (points.empty()) return;
  if (coinTriple_ && points.size() >= 4) {
    lecture_.Ignore("clippath");
    return;
  }
  Trait t;
  if (points.size() == 1) {
    if (sorte_ != 'R' || !(bouge_ || ferme)) return;
    t.nature = Nature::Percage;
  } else {
    const bool boucle = points.size() >= 4 && points.front() == points.back();
    t.nature = (ferme || sorte_ == 'F' || boucle) && points.size() > 2 ? Nature::Ferme : Nature::Ouvert;
    if (t.nature == Nature::Ferme && points.size() > 3 && points.front() == points.back()) points.pop_back();
  }
  t.points = std::move(points);
  Emet(std::move(t));
}

void EpsChemins::Emet(Trait&& trait) {
  for (const Vec2 p : trait.points) {
    if (!(std::fabs(p.x) <= LimiteCoordonnee && std::fabs(p.y) <= LimiteCoordonnee)) {
      Abandonne(Erreur::Coordonnee, "");
      return;
    }
  }
  points_ += trait.points.size() + 4;  // a path costs as much as some points
  trait.points.shrink_to_fit();
  lecture_.traits.push_back(std::move(trait));
  if (points_ > pointsMax_) Abandonne(Erreur::Memoire, "");
}

void EpsChemins::Abandonne(Erreur numero, std::string_view detail) {
  arrete_ = true;
  lecture_.traits.clear();
  Casse();
  lecture_.Refuse(numero, 0, detail);
}

}  // namespace pathwerk::lecture::eps
