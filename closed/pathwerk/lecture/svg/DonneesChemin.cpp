#include "closed/pathwerk/lecture/svg/DonneesChemin.h"

#include <array>
#include <cstddef>

#include "closed/pathwerk/lecture/svg/Valeurs.h"

namespace pathwerk::lecture::svg {

namespace {

using Arguments = std::array<double, 7>;

constexpr char Majuscule(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

// How many numbers a command takes; 7 for nothing that is one.
constexpr std::size_t NombreArguments(char commande) {
  switch (commande) {
    case 'Z':
      return 0;
    case 'H':
    case 'V':
      return 1;
    case 'M':
    case 'L':
    case 'T':
      return 2;
    case 'S':
    case 'Q':
      return 4;
    case 'C':
      return 6;
    default:
      return 7;
  }
}

bool EstCommande(char c) { return std::string_view("MLHVCSQTAZ").find(Majuscule(c)) != std::string_view::npos; }

class LecteurChemin {
 public:
  LecteurChemin(std::string_view donnees, Plume& plume) : valeurs_(donnees), plume_(plume) {}

  bool Trace() {
    while (valeurs_.Suite() && !plume_.Pleine()) {
      const char c = valeurs_.Reste()[0];
      if (EstCommande(c)) {
        valeurs_.Avance(1);
        if (derniere_ == 0 && Majuscule(c) != 'M') return false;
        commande_ = c;
      } else if (commande_ == 'M' || commande_ == 'm') {
        commande_ = commande_ == 'M' ? 'L' : 'l';  // further places of a move are lines
      } else if (commande_ == 0 || Majuscule(commande_) == 'Z') {
        return false;
      }
      Arguments a{};
      if (!Lit(a)) return false;
      Execute(Majuscule(commande_), a);
      derniere_ = Majuscule(commande_);
    }
    return true;
  }

 private:
  bool Lit(Arguments& a) {
    const char c = Majuscule(commande_);
    for (std::size_t i = 0; i < NombreArguments(c); ++i) {
      const bool drapeau = c == 'A' && (i == 3 || i == 4);
      if (!(drapeau ? valeurs_.Drapeau(a[i]) : valeurs_.Nombre(a[i]))) return false;
    }
    return true;
  }

  // A place of the arguments, from the current one when the command is relative.
  [[nodiscard]] Vec2 Lieu(const Arguments& a, std::size_t i) const {
    const bool relative = commande_ >= 'a';
    return {a[i] + (relative ? plume_.Ici().x : 0), a[i + 1] + (relative ? plume_.Ici().y : 0)};
  }
  // The last handle mirrored at the current place; that place itself behind a command of another kind.
  [[nodiscard]] Vec2 Miroir(char sorte, char courte) const {
    const Vec2 ici = plume_.Ici();
    if (derniere_ != sorte && derniere_ != courte) return ici;
    return {2 * ici.x - poignee_.x, 2 * ici.y - poignee_.y};
  }

  void Execute(char commande, const Arguments& a) {
    const Vec2 ici = plume_.Ici();
    const bool relative = commande_ >= 'a';
    switch (commande) {
      case 'M':
        return plume_.Va(Lieu(a, 0));
      case 'L':
        return plume_.Ligne(Lieu(a, 0));
      case 'H':
        return plume_.Ligne({a[0] + (relative ? ici.x : 0), ici.y});
      case 'V':
        return plume_.Ligne({ici.x, a[0] + (relative ? ici.y : 0)});
      case 'C':
        poignee_ = Lieu(a, 2);
        return plume_.Cubique(Lieu(a, 0), poignee_, Lieu(a, 4));
      case 'S': {
        const Vec2 premiere = Miroir('C', 'S');
        poignee_ = Lieu(a, 0);
        return plume_.Cubique(premiere, poignee_, Lieu(a, 2));
      }
      case 'Q':
        poignee_ = Lieu(a, 0);
        return plume_.Quadratique(poignee_, Lieu(a, 2));
      case 'T':
        poignee_ = Miroir('Q', 'T');
        return plume_.Quadratique(poignee_, Lieu(a, 0));
      case 'A':
        return plume_.Arc(a[0], a[1], a[2], a[3] != 0, a[4] != 0, Lieu(a, 5));
      default:
        return plume_.Ferme();
    }
  }

  LecteurValeurs valeurs_;
  Plume& plume_;
  char commande_ = 0;
  char derniere_ = 0;  // upper case
  Vec2 poignee_;
};

}  // namespace

bool TraceDonnees(std::string_view donnees, Plume& plume) { return LecteurChemin(donnees, plume).Trace(); }

}  // namespace pathwerk::lecture::svg
