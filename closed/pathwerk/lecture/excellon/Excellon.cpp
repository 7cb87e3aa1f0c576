// Drill files (Excellon, NC drill): holes, slots and routes.
#include "closed/pathwerk/lecture/excellon/Excellon.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <new>
#include <numbers>
#include <optional>
#include <string>
#include <vector>

#include "base/Indices.h"
#include "closed/pathwerk/commun/Courbes.h"
#include "closed/pathwerk/lecture/Lignes.h"
#include "closed/pathwerk/lecture/excellon/Arc.h"
#include "closed/pathwerk/lecture/excellon/Mots.h"
#include "closed/pathwerk/lecture/excellon/Outils.h"

namespace pathwerk::lecture::excellon {

namespace {

constexpr double LongueurMax = 1e7;  // mm

std::string Nom(char lettre, int numero) {
  std::string n = std::to_string(numero);
  if (n.size() < 2) n.insert(0, 1, '0');
  return lettre + n;
}

// What one line asks for.
struct Bloc {
  int g = -1;
  int m = -1;
  int repete = -1;
  bool outil = false;
  std::optional<double> x, y, a, i, j;  // before G85, mm
  std::optional<double> x2, y2;         // behind it
  double diametre = 0;                  // G84, mm
  bool rainure = false;                 // G85
};

class Lecteur {
 public:
  Lecteur(std::string_view data, const OptionsLecture& options, Lecture& lecture)
      : data_(data), fleche_(options.Fleche), lecture_(lecture) {
    // A byte rarely stands for more than a point; what a small file may ask for beyond that is bounded.
    pointsPermis_ = data.size() + 200000;
    sansDescente_ = data.find("M15") == data.npos && data.find("M14") == data.npos;
  }

  void Lit() {
    Lignes lignes(data_);
    std::string_view ligne;
    while (!fini_ && !lecture_.Refuse() && lignes.Suivante(ligne)) {
      numero_ = lignes.Numero();
      LitLigne(SansBlancs(ligne));
    }
    // Many writers leave M30 out; a file that is cut off ends in a line, in the header or with the router down.
    const bool ligneEntiere = data_.ends_with('\n') || data_.ends_with('\r');
    const bool coupe = !fini_ && (!ligneEntiere || baisse_ || dansEntete_);
    FinRoute();
    if (lecture_.Refuse()) return;
    if (!entete_ && (comprises_ == 0 || comprises_ < refusees_)) {
      lecture_.Refuse(Erreur::Excellon, premierRefus_ > 0 ? premierRefus_ : 1, texteRefus_);
      return;
    }
    lecture_.rapport.Tronque = coupe;
    Previent();
  }

 private:
  [[nodiscard]] std::uint32_t Ligne() const { return static_cast<std::uint32_t>(numero_); }
  void Refuse(Erreur e, std::string_view detail) { lecture_.Refuse(e, numero_, detail); }

  // What had to be supposed, and what speaks against it.
  void Previent() {
    if (lecture_.traits.empty()) return;
    auto& avis = lecture_.rapport.Suppose;
    if (!format_.unitesDites) avis.push_back({Avis::SansUnites, ""});
    if (format_.devine) avis.push_back({Avis::FormatDevine, format_.Ligne()});
    if (etendue_.empty()) return;
    Vec2 min = lecture_.traits[0].points[0];
    Vec2 max = min;
    for (const Trait& t : lecture_.traits) {
      for (const Vec2 p : t.points) {
        min = {std::min(min.x, p.x), std::min(min.y, p.y)};
        max = {std::max(max.x, p.x), std::max(max.y, p.y)};
      }
    }
    if (!EtenduePossible(etendue_, format_, {max.x - min.x, max.y - min.y})) {
      avis.push_back({Avis::Etendue, std::string(etendue_.substr(0, 80))});
    }
  }

  void LigneInconnue(std::string_view ligne) {
    if (premierRefus_ == 0) {
      premierRefus_ = numero_;
      texteRefus_ = std::string(ligne.substr(0, 40));
    }
    ++refusees_;
    lecture_.Ignore("ROW", 1, numero_);
  }

  void LitLigne(std::string_view ligne) {
    if (ligne.empty()) return;
    if (ligne[0] == ';') {
      LitCommentaireFormat(ligne, format_);
      if (EstEtendue(ligne)) etendue_ = ligne;
      return;
    }
    if (ligne == "M48") {
      entete_ = dansEntete_ = true;
      return;
    }
    if (ligne == "%" || ligne == "M95") {
      dansEntete_ = false;
      return;
    }
    if (ligne.starts_with("%FS") || ligne.starts_with("%MO") || ligne.starts_with("%AD")) {
      entete_ = false;
      comprises_ = 0;
      Refuse(Erreur::Excellon, ligne.substr(0, 40));  // a photoplot under a wrong name
      return;
    }
    std::vector<std::string> inconnus;
    const bool unites = ligne[0] == 'I' || ligne[0] == 'M';  // as their names begin
    if (unites && LitUnites(ligne, format_, inconnus)) {
      for (const std::string& mot : inconnus) lecture_.Ignore(mot, 1, numero_);
      return;
    }
    if (dansEntete_ && LigneDEntete(ligne)) return;
    dansEntete_ = false;
    Bloc bloc;
    const bool texte = ligne.starts_with("M97") || ligne.starts_with("M98") || ligne.starts_with("M47");
    if (texte) {
      lecture_.Ignore(ligne.substr(0, 3), 1, numero_);
    } else if (DecoupeMots(ligne, mots_) && LitBloc(mots_, bloc)) {
      ++comprises_;
      Execute(bloc);
    } else if (!lecture_.Refuse()) {
      LigneInconnue(ligne);
    }
  }

  // True for what belongs into the header; a coordinate, a code of the body or a tool that goes somewhere ends it.
  bool LigneDEntete(std::string_view ligne) {
    if (ligne.starts_with("ICI")) {
      relatif_ = ligne.ends_with("ON");
      return true;
    }
    if (EstDuCorps(ligne)) return false;
    NoteOutil(ligne);
    if (!EntreeConnue(ligne))
      lecture_.Ignore(ligne.substr(0, std::min<std::size_t>(ligne.find(','), 24)), 1, numero_);
    return true;
  }

  // "T01C0.8": from here on this tool is in hand, whose diameter the header or this line may tell.
  void NoteOutil(std::string_view ligne) {
    Mots mots;
    if (!ligne.starts_with('T') || !DecoupeMots(ligne, mots)) return;
    const int numero = EntierDebut(mots.mots[0].texte);
    if (numero >= 0) outils_.Note(numero, mots, format_.Echelle());
  }

  static bool EstDuCorps(std::string_view ligne) {
    constexpr std::string_view Suites = "+-.0123456789";
    const bool nombre = ligne.size() > 1 && Suites.find(ligne[1]) != Suites.npos;
    if (!nombre) return false;
    if (ligne[0] == 'T') return ligne.find_first_of("XY") != ligne.npos;
    return ligne[0] == 'X' || ligne[0] == 'Y' || ligne[0] == 'G' || ligne[0] == 'M';
  }

  std::optional<double> Nombre(const Mot& mot) {
    const auto v = format_.Coordonnee(mot.texte);
    if (v && std::fabs(*v) > LongueurMax) {
      Refuse(Erreur::Coordonnee, std::string(1, mot.lettre) + std::string(mot.texte));
      return std::nullopt;
    }
    return v;
  }

  bool LitBloc(const Mots& mots, Bloc& b) {
    for (std::size_t k = 0; k < mots.nb; ++k) {
      const Mot& mot = mots.mots[k];
      const bool derriere = b.rainure;
      std::optional<double>* cible = nullptr;
      switch (mot.lettre) {
        case 'X':
          if (b.g == 84) {
            const auto d = Nombre(mot);
            if (!d) return false;
            b.diametre = *d;
            continue;
          }
          cible = derriere ? &b.x2 : &b.x;
          break;
        case 'Y':
          cible = derriere ? &b.y2 : &b.y;
          break;
        case 'A':
          cible = &b.a;
          break;
        case 'I':
          cible = &b.i;
          break;
        case 'J':
          cible = &b.j;
          break;
        case 'G':
          b.g = EntierDebut(mot.texte);
          b.rainure = b.g == 85 || b.g == 87;
          if (b.g < 0) return false;
          continue;
        case 'M':
          b.m = EntierDebut(mot.texte);
          if (b.m < 0) return false;
          continue;
        case 'R':
          b.repete = EntierDebut(mot.texte);
          if (b.repete < 0) return false;
          continue;
        case 'T':
          b.outil = true;
          if (EntierDebut(mot.texte) < 0) return false;
          outils_.Note(EntierDebut(mot.texte), mots, format_.Echelle());
          continue;
        case 'C':
        case 'F':
        case 'S':
        case 'B':
        case 'H':
        case 'Z':
        case 'N':
          continue;  // feed, speed, depth, line number: the machine's own
        default:
          return false;
      }
      *cible = Nombre(mot);
      if (!*cible) return false;
    }
    return true;
  }

  [[nodiscard]] Vec2 Cible(const std::optional<double>& x, const std::optional<double>& y) const {
    if (relatif_) return {ici_.x + x.value_or(0), ici_.y + y.value_or(0)};
    return {x ? *x + zero_.x : ici_.x, y ? *y + zero_.y : ici_.y};
  }

  void Execute(const Bloc& b) {
    if (b.outil) {
      FinRoute();  // by the one before
      calque_ = lecture_.calques.Place(Calque::Genre::Outil, outils_.Nom(), std::nullopt);
    }
    if (b.m >= 0 && Auxiliaire(b)) return;
    if (b.repete >= 0) {
      Repete(b);
      return;
    }
    const bool place = b.x || b.y;
    switch (b.g) {
      case 0:
        FinRoute();
        fraise_ = true;
        mode_ = 1;
        if (place) ici_ = Cible(b.x, b.y);
        return;
      case 1:
      case 2:
      case 3:
        fraise_ = true;
        mode_ = b.g;
        break;
      case 5:
      case 81:
        FinRoute();
        fraise_ = false;
        break;
      case 90:
        relatif_ = false;
        break;
      case 91:
        relatif_ = true;
        break;
      case 92:
      case 93:
        zero_ = {b.x.value_or(0), b.y.value_or(0)};
        return;
      case 84:
        Cercle(Cible(b.x, b.y), b.diametre / 2);
        return;
      case 32:
      case 33:
        Cercle(Cible(b.x, b.y), b.a.value_or(0));
        return;
      case 85:
      case 87:
        Rainure(b);
        return;
      case -1:
      case 40:  // radius compensation: the drawn line is what is read
      case 41:
      case 42:
        break;
      default:
        lecture_.Ignore(Nom('G', b.g), 1, numero_);
        return;
    }
    if (!place && !((b.i || b.j) && fraise_)) return;
    if (fraise_) {
      Fraise(b);
    } else {
      ici_ = Cible(b.x, b.y);
      Perce(ici_);
    }
  }

  // True when the line is done with.
  bool Auxiliaire(const Bloc& b) {
    switch (b.m) {
      case 0:
      case 30:
        fini_ = true;
        return true;
      case 14:
      case 15:
        baisse_ = true;
        return false;
      case 16:
      case 17:
        FinRoute();
        return false;
      case 71:
      case 72:
        format_.Unites(b.m == 72);
        return false;
      case 25:
        motif_ = finMotif_ = lecture_.traits.size();
        return true;
      case 1:
        FinRoute();
        finMotif_ = lecture_.traits.size();
        return true;
      case 2:
        if (!b.x && !b.y) {
          fini_ = true;
        } else {
          RepeteMotif({b.x.value_or(0), b.y.value_or(0)});
        }
        return true;
      case 8:
        motif_ = finMotif_ = lecture_.traits.size();
        return true;
      case 6:
      case 9:
      case 18:
      case 95:
        return false;
      default:
        lecture_.Ignore(Nom('M', b.m), 1, numero_);
        return true;
    }
  }

  // The budget of the drawing. False when it is spent: some bytes of a hostile file can ask for millions of points.
  bool Prend(std::size_t points) {
    points_ += points;
    if (points_ <= pointsPermis_) return true;
    Refuse(Erreur::Memoire, std::to_string(points_) + " points");
    return false;
  }

  void Perce(Vec2 p) {
    if (Prend(2)) lecture_.traits.push_back({{p}, Nature::Percage, calque_, Ligne()});
  }

  void Repete(const Bloc& b) {
    for (int k = 0; k < b.repete; ++k) {
      ici_ = {ici_.x + b.x.value_or(0), ici_.y + b.y.value_or(0)};
      if (!(std::fabs(ici_.x) <= LongueurMax && std::fabs(ici_.y) <= LongueurMax)) {
        Refuse(Erreur::Coordonnee, EnTexte(ici_.x) + " " + EnTexte(ici_.y) + " mm");
        return;
      }
      Perce(ici_);
      if (lecture_.Refuse()) return;
    }
  }

  // M25 ... M01 is a pattern; each M02X..Y.. behind it draws it once more, each step from the one before.
  void RepeteMotif(Vec2 pas) {
    if (decalageDe_ != motif_) {
      decalage_ = {};
      decalageDe_ = motif_;
    }
    decalage_ = {decalage_.x + pas.x, decalage_.y + pas.y};
    for (std::size_t k = motif_; k < finMotif_; ++k) {
      Trait t = lecture_.traits[k];
      t.ligne = Ligne();
      if (!Prend(t.points.size() + 1)) return;
      for (Vec2& p : t.points) p = {p.x + decalage_.x, p.y + decalage_.y};
      lecture_.traits.push_back(std::move(t));
    }
  }

  void Cercle(Vec2 centre, double rayon) {
    ici_ = centre;
    if (!(rayon > 0)) {
      Perce(centre);
      return;
    }
    Trait t{{}, Nature::Ferme, calque_, Ligne()};
    AjouteArc(t.points, centre, rayon, 0, 2 * std::numbers::pi, fleche_);
    if (Prend(t.points.size())) lecture_.traits.push_back(std::move(t));
  }

  void Rainure(const Bloc& b) {
    if (b.x || b.y) ici_ = Cible(b.x, b.y);
    const Vec2 debut = ici_;
    ici_ = Cible(b.x2, b.y2);
    if (debut == ici_) {
      Perce(debut);
    } else if (Prend(2)) {
      lecture_.traits.push_back({{debut, ici_}, Nature::Ouvert, calque_, Ligne()});
    }
  }

  void Fraise(const Bloc& b) {
    const Vec2 debut = ici_;
    ici_ = Cible(b.x, b.y);
    if (!baisse_ && !sansDescente_) return;
    if (route_.empty()) route_.push_back(debut);
    if (route_.size() == 1) ligneRoute_ = Ligne();
    const std::size_t avant = route_.size();
    if (mode_ == 1) {
      route_.push_back(ici_);
    } else {
      AjouteArcRoute(route_, ici_, mode_ == 2, {b.i, b.j, b.a}, fleche_);
    }
    Prend(route_.size() - avant);
  }

  void FinRoute() {
    baisse_ = false;
    if (route_.size() > 1) lecture_.traits.push_back({std::move(route_), Nature::Ouvert, calque_, ligneRoute_});
    route_ = {};
  }

  std::string_view data_;
  double fleche_;
  Lecture& lecture_;
  FormatExcellon format_;
  Mots mots_;  // of the line: so many that no line wipes the room for them
  Outils outils_;
  std::uint16_t calque_ = 0;  // of the tool in hand
  std::string_view etendue_;  // the comment with the extents
  std::size_t pointsPermis_ = 0;
  std::size_t points_ = 0;
  long numero_ = 0;
  long comprises_ = 0;
  long refusees_ = 0;
  long premierRefus_ = 0;
  std::string texteRefus_;
  bool entete_ = false;
  bool dansEntete_ = false;
  bool fini_ = false;
  bool relatif_ = false;
  bool fraise_ = false;        // routing, otherwise drilling
  bool baisse_ = false;        // the router is down
  bool sansDescente_ = false;  // a file without M14 and M15: G01 to G03 always cut
  int mode_ = 1;               // G01, G02, G03
  Vec2 ici_;
  Vec2 zero_;  // G92, G93
  std::vector<Vec2> route_;
  std::uint32_t ligneRoute_ = 0;  // where it begins
  std::size_t motif_ = 0;
  std::size_t finMotif_ = 0;
  std::size_t decalageDe_ = base::Nulle;
  Vec2 decalage_;
};

}  // namespace

// A hole is its centre whatever the tool; slots and routes are the centre lines of the cut, each stroke of the
// router one path.
void LireExcellon(std::string_view data, const OptionsLecture& options, Lecture& lecture) {
  lecture.rapport.Format = "DRL";
  lecture.souder = false;
  try {
    if (const std::size_t nul = data.find('\0'); nul != std::string_view::npos) {
      lecture.Refuse(Erreur::Excellon, LigneDe(data, nul), "NUL");
      return;
    }
    Lecteur(data, options, lecture).Lit();
  } catch (const std::bad_alloc&) {
    lecture.Refuse(Erreur::Memoire, 0, "");
  }
}

}  // namespace pathwerk::lecture::excellon
