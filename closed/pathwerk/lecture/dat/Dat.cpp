// Coordinate files: rows of X and Y, airfoils among them, and this system's own export.
#include "closed/pathwerk/lecture/dat/Dat.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <new>
#include <vector>

#include "base/Indices.h"
#include "closed/pathwerk/lecture/Lignes.h"

namespace pathwerk::lecture::dat {

namespace {

constexpr std::string_view MarqueMaison = "#OVELIN";
constexpr std::string_view DebutLigne = "ROW";  // rows that begin like a point and are none
constexpr double ValeurSeparateur = 999;        // MSES: "999. 999." stands between two elements
constexpr std::size_t ColonnesMax = 32;

// The fields of one row.
struct Rangee {
  std::array<std::string_view, ColonnesMax> champs;
  std::size_t nb = 0;
  void Ajoute(std::string_view c) {
    c = SansBlancs(c);
    if (!c.empty() && nb < ColonnesMax) champs[nb++] = c;
  }
};

std::size_t Virgules(std::string_view t) { return base::Indice(std::count(t.begin(), t.end(), ',')); }

void DecoupeAux(std::string_view ligne, std::string_view separateurs, Rangee& r) {
  while (!ligne.empty()) {
    const std::size_t fin = ligne.find_first_of(separateurs);
    r.Ajoute(ligne.substr(0, fin));
    if (fin == std::string_view::npos) return;
    ligne.remove_prefix(fin + 1);
  }
}

// A comma parts two fields or stands for the decimal point. It is decimal inside a field that blanks, tabs or
// semicolons have already parted from another one and that has no point ("0,5 1,25"), and in "0,5,1,25". It parts
// fields in "0.5,1.25", "1,2" and "1, 2".
Rangee Decoupe(std::string_view ligne) {
  Rangee brute;
  DecoupeAux(ligne, " \t;", brute);
  Rangee r;
  if (brute.nb == 1 && Virgules(brute.champs[0]) == 3 && brute.champs[0].find('.') == std::string_view::npos) {
    const std::string_view t = brute.champs[0];
    const std::size_t milieu = t.find(',', t.find(',') + 1);
    r.Ajoute(t.substr(0, milieu));
    r.Ajoute(t.substr(milieu + 1));
    return r;
  }
  for (std::size_t i = 0; i < brute.nb; ++i) {
    std::string_view c = brute.champs[i];
    while (!c.empty() && c.back() == ',') c.remove_suffix(1);
    while (!c.empty() && c.front() == ',') c.remove_prefix(1);
    const bool decimale = brute.nb > 1 && Virgules(c) == 1 && c.find('.') == std::string_view::npos;
    if (decimale) {
      r.Ajoute(c);
    } else {
      DecoupeAux(c, ",", r);
    }
  }
  return r;
}

// "nan", "-inf" and the like, as programs print what they could not compute.
bool PasUnNombre(std::string_view c) {
  if (!c.empty() && (c[0] == '+' || c[0] == '-')) c.remove_prefix(1);
  std::string t(c.substr(0, 9));
  for (char& k : t) k = static_cast<char>(k >= 'A' && k <= 'Z' ? k + 32 : k);
  return t == "nan" || t == "inf" || t == "infinity" || t == "-nan(ind)" || t == "nan(ind)" || t == "1.#ind" ||
         t == "1.#inf" || t == "1.#qnan";
}

enum class Coupure : unsigned char { Aucune, Vide, Texte, Separateur };

// Rows that follow each other without a blank line or a text between them.
struct Bloc {
  std::vector<Vec2> points;
  Coupure avant = Coupure::Aucune;
};

class Lecteur {
 public:
  explicit Lecteur(Lecture& lecture) : lecture_(lecture) {}

  bool Lit(std::string_view data) {
    Lignes lignes(data);
    std::string_view ligne;
    while (lignes.Suivante(ligne)) {
      ligne = SansBlancs(ligne);
      if (ligne.empty()) {
        Coupe(Coupure::Vide);
      } else if (!LitLigne(ligne, lignes.Numero())) {
        return false;
      }
    }
    if (larges_ > 1) lecture_.rapport.Suppose.push_back({Avis::Colonnes, std::to_string(colonnesMax_)});
    if (blocs_.empty()) {
      lecture_.Refuse(Erreur::Dat, lignes.Numero(), premiereLigne_);
      return false;
    }
    return true;
  }

  void Emet() {
    if (lecture_.ordreImpose) {
      for (Bloc& b : blocs_) Ajoute(std::move(b.points), Nature::Ouvert);
      return;
    }
    OteDomaine();
    if (!Lednicer()) Rassemble();
    for (Bloc& b : blocs_) {
      const bool percage = b.points.size() == 2 && b.points[0] == b.points[1];
      const Nature nature = percage ? Nature::Percage : BordDeFuiteEpais(b.points) ? Nature::Ferme : Nature::Ouvert;
      Ajoute(std::move(b.points), nature);
    }
  }

 private:
  // An airfoil in Selig's order whose tail has a thickness: from the tail over one surface to the nose and back
  // over the other, both ends at the tail and near each other. It is the contour of a part, so the tail is cut as
  // well.
  //
  //           .----------___ start
  //     nose (               | tail gap, at most a tenth of the chord
  //           '----------""" end
  //
  static bool BordDeFuiteEpais(const std::vector<Vec2>& points) {
    constexpr double Part = 0.1;
    if (points.size() < 5 || points.front() == points.back()) return false;
    const auto [nez, queue] =
        std::minmax_element(points.begin(), points.end(), [](Vec2 a, Vec2 b) { return a.x < b.x; });
    const double corde = queue->x - nez->x;
    const double jeu = std::hypot(points.front().x - points.back().x, points.front().y - points.back().y);
    const double limite = queue->x - Part * corde;
    if (!(corde > 0) || jeu > Part * corde || points.front().x < limite || points.back().x < limite) return false;
    // Along each surface the way goes on, but for the small steps back of a blunt nose or a cusped tail.
    double recul = 0;
    for (auto p = points.begin() + 1; p != points.end(); ++p) {
      const double avance = p <= nez ? (p - 1)->x - p->x : p->x - (p - 1)->x;
      recul += std::max(0.0, -avance);
    }
    return recul <= Part * corde;
  }

  bool LitLigne(std::string_view ligne, long numero) {
    if (premiereLigne_.empty()) {
      premiereLigne_ = std::string(ligne.substr(0, 40));
      lecture_.ordreImpose = ligne.starts_with(MarqueMaison);
    }
    const Rangee r = ligne[0] == '#' ? Rangee{} : Decoupe(ligne);
    const bool titre = lues_++ == 0;
    const auto x = r.nb > 0 ? LitReel(r.champs[0]) : std::nullopt;
    const auto y = r.nb > 1 ? LitReel(r.champs[1]) : std::nullopt;
    if (x && y) {
      const bool texte = r.nb > 2 && !LitReel(r.champs[2]);
      // The first line may be a title that begins with numbers: "30 40 Special".
      if (texte && titre) return true;
      if (texte && !Nomme(r)) {
        lecture_.Ignore(DebutLigne, 1, numero);
        return true;
      }
      if (r.nb > 3 && !texte) {
        ++larges_;
        colonnesMax_ = std::max(colonnesMax_, r.nb);
      }
      return AjoutePoint({*x, *y}, r.nb, numero, ligne);
    }
    const bool ratee = r.nb > 1 && (x || PasUnNombre(r.champs[0])) && (y || PasUnNombre(r.champs[1]));
    if (ratee) return Coordonnee(numero, ligne);
    if (x && !titre) {
      // A number and then none: typing damage. A number alone ahead of all rows is their count.
      if (r.nb > 1 || !blocs_.empty()) lecture_.Ignore(DebutLigne, 1, numero);
      return true;
    }
    Coupe(Coupure::Texte);
    return true;
  }

  // A point may carry a name, one word in its row or as many as the rows before it. More than that, or a text
  // behind a cut, are words that begin with numbers: "12 33 are the counts of both surfaces".
  bool Nomme(const Rangee& r) {
    if (nommes_ == r.nb) return true;
    if (r.nb != 3 || (coupure_ != Coupure::Aucune && !blocs_.empty())) return false;
    nommes_ = r.nb;
    return true;
  }

  bool Coordonnee(long numero, std::string_view ligne) {
    lecture_.Refuse(Erreur::Coordonnee, numero, ligne.substr(0, 60));
    return false;
  }

  bool AjoutePoint(Vec2 p, std::size_t colonnes, long numero, std::string_view ligne) {
    if (!(std::fabs(p.x) <= 1e7 && std::fabs(p.y) <= 1e7)) return Coordonnee(numero, ligne);
    if (!lecture_.ordreImpose && p.x == ValeurSeparateur && p.y == ValeurSeparateur) {
      Coupe(Coupure::Separateur);
      return true;
    }
    if (blocs_.empty() || coupure_ != Coupure::Aucune) {
      blocs_.push_back({{}, coupure_});
      coupure_ = Coupure::Aucune;
    }
    if (points_ < 2) colonnes_[points_] = colonnes;
    ++points_;
    blocs_.back().points.push_back(p);
    return true;
  }

  // In an own file only the marker lines part paths.
  void Coupe(Coupure c) {
    if (lecture_.ordreImpose && c != Coupure::Texte) return;
    if (!blocs_.empty() || c == Coupure::Texte) coupure_ = std::max(coupure_, c);
  }

  void Ajoute(std::vector<Vec2>&& points, Nature nature) {
    if (!points.empty()) lecture_.traits.push_back({std::move(points), nature});
  }

  void OtePremier() {
    auto& points = blocs_.front().points;
    points.erase(points.begin());
    if (points.empty()) blocs_.erase(blocs_.begin());
  }

  // MSES: the second line holds the four limits of the domain of computation.
  void OteDomaine() {
    if (points_ > 2 && colonnes_[0] == 4 && colonnes_[1] == 2) {
      OtePremier();
      --points_;
    }
  }

  // Lednicer's form: a row with the number of points of each surface, then both surfaces from the nose to the tail.
  // The two numbers may stand in the wrong order, and then a blank line tells where the second surface begins.
  //
  //      <--- first ----.
  //     nose             tail        joined to one contour as Selig writes it: tail, first, nose, second, tail
  //      '--- second -->
  //
  bool Lednicer() {
    const Vec2 n = blocs_.front().points.front();
    const auto entier = [](double v) { return v >= 2 && v <= 1e6 && v == std::floor(v); };
    if (points_ < 5 || !entier(n.x) || !entier(n.y)) return false;
    const auto attendus = static_cast<std::size_t>(n.x) + static_cast<std::size_t>(n.y);
    if (attendus != points_ - 1) return false;
    std::vector<Bloc> autres = blocs_;
    auto& tete = autres.front().points;
    tete.erase(tete.begin());
    if (tete.empty()) autres.erase(autres.begin());
    std::vector<Vec2> premiere;
    std::vector<Vec2> seconde;
    if (autres.size() == 2) {
      premiere = std::move(autres[0].points);
      seconde = std::move(autres[1].points);
    } else {
      std::vector<Vec2> tous;
      for (const Bloc& b : autres) tous.insert(tous.end(), b.points.begin(), b.points.end());
      const auto coupe = static_cast<std::ptrdiff_t>(n.x);
      premiere.assign(tous.begin(), tous.begin() + coupe);
      seconde.assign(tous.begin() + coupe, tous.end());
    }
    blocs_.assign(1, {Contour(std::move(premiere), seconde), Coupure::Aucune});
    return true;
  }

  static std::vector<Vec2> Contour(std::vector<Vec2> premiere, const std::vector<Vec2>& seconde) {
    std::reverse(premiere.begin(), premiere.end());
    const auto debut = seconde.begin() + (premiere.back() == seconde.front() ? 1 : 0);
    premiere.insert(premiere.end(), debut, seconde.end());
    return premiere;
  }

  // What a blank line or a text has parted belongs together when the next row goes on exactly where the last one
  // ended, when a blank line stands behind every row, and when two surfaces start at the same nose.
  void Rassemble() {
    if (blocs_.size() == 2 && blocs_[0].points.size() > 2 && blocs_[1].points.size() > 2 &&
        blocs_[1].avant != Coupure::Separateur && blocs_[0].points.front() == blocs_[1].points.front() &&
        blocs_[0].points.front() != blocs_[0].points.back() &&
        blocs_[1].points.front() != blocs_[1].points.back()) {
      auto contour = Contour(std::move(blocs_[0].points), blocs_[1].points);
      blocs_.assign(1, {std::move(contour), Coupure::Aucune});
      return;
    }
    const bool espacees =
        std::all_of(blocs_.begin(), blocs_.end(), [](const Bloc& b) { return b.points.size() == 1; });
    std::vector<Bloc> ensemble;
    for (Bloc& b : blocs_) {
      const bool suite =
          !ensemble.empty() && b.avant != Coupure::Separateur &&
          (ensemble.back().points.back() == b.points.front() || (espacees && b.avant == Coupure::Vide));
      if (!suite) {
        ensemble.push_back(std::move(b));
        continue;
      }
      auto& points = ensemble.back().points;
      points.insert(points.end(), b.points.begin(), b.points.end());
    }
    blocs_ = std::move(ensemble);
  }

  Lecture& lecture_;
  std::vector<Bloc> blocs_;
  Coupure coupure_ = Coupure::Aucune;
  std::size_t points_ = 0;
  std::array<std::size_t, 2> colonnes_{};  // columns of the first two rows
  long lues_ = 0;
  long larges_ = 0;  // rows of more than three numbers; a single one is a domain of computation
  std::size_t colonnesMax_ = 0;
  std::size_t nommes_ = 0;  // fields of a row whose point has a name; 0 when none has
  std::string premiereLigne_;
};

}  // namespace

// Rows become paths as they stand; an airfoil is a contour, whether its two tail points are the same or stand
// apart. Other ends are never joined: a drawing of chord 1 is 1 mm long until it is scaled, and any gap would fall
// within the tolerance.
void LireDat(std::string_view data, const OptionsLecture& options, Lecture& lecture) {
  (void)options;
  lecture.rapport.Format = "DAT";
  lecture.souder = false;
  lecture.mesure = false;
  try {
    if (const std::size_t nul = data.find('\0'); nul != std::string_view::npos) {
      lecture.Refuse(Erreur::Dat, LigneDe(data, nul), "NUL");
      return;
    }
    Lecteur lecteur(lecture);
    if (lecteur.Lit(data)) lecteur.Emet();
  } catch (const std::bad_alloc&) {
    lecture.Refuse(Erreur::Memoire, 0, "");
  }
}

}  // namespace pathwerk::lecture::dat
