// Which ring of a fill hangs on which, and by which straight moves the cutter gets from one to the other.
#pragma once

#include <cstddef>
#include <limits>
#include <optional>
#include <vector>

#include "closed/pathwerk/poche/Anneaux.h"

namespace pathwerk::poche {

inline constexpr std::size_t Aucun = std::numeric_limits<std::size_t>::max();

// A place of a ring from which the cutter goes straight to the start of another one and comes back.
struct Passage {
  std::size_t enfant = Aucun;
  std::size_t arete = 0;  // on the edge that leaves this point; the number of points: at the end of the round
  double t = 0;
  Vec2 lieu;
};

struct Anneau {
  Chemin points;  // begins at the ring's start once that is known
  Origines origines;
  double profondeur = 0;
  std::size_t parent = Aucun;
  bool fixe = false;   // its start is already known
  bool apres = false;  // milled when its parent is done
  std::vector<std::size_t> enfants;
  std::vector<Passage> passages;  // in the order of the round
};

class ArbreAnneaux {
 public:
  ArbreAnneaux(Remplissage remplissage, const Acces& acces);

  [[nodiscard]] std::vector<Anneau>& Anneaux() { return anneaux_; }
  // Outermost rings, one for each part that hangs together; a ring around an island hangs on another one.
  [[nodiscard]] const std::vector<std::size_t>& Racines() const { return racines_; }
  // Rings that no free move leads to.
  [[nodiscard]] std::vector<std::size_t>& Orphelins() { return orphelins_; }

  // A straight free move from a ring, at `depart` or else at another of its places, to its parent.
  struct Lien {
    Lieu depart;   // on the child
    Lieu arrivee;  // on the parent
  };
  class Cherche;
  [[nodiscard]] std::optional<Lien> LienVers(const Cherche& parent, const Anneau& enfant, const Lieu& depart) const;
  // Chooses the starts of all that hangs on a ring whose start is known, and where it is attached.
  void PlaceDescendance(std::size_t racine);

 private:
  class Index;
  class Groupes;
  struct Pont;
  void Ajoute(Remplissage& r);
  void AjouteRestes(const Niveau& niveau, const Index& ici, const Index* dedans, double rayon, double pas,
                    double tolerance);
  void Degage(Anneau& a, const Index& dedans, double rayon) const;
  [[nodiscard]] Pont PontVersAutres(const Groupes& groupes, std::size_t groupe, const Index& index) const;
  void Suspend(const Pont& pont);
  void LieIles(bool horaire, double tolerance);
  [[nodiscard]] std::vector<std::size_t> RacinesDeTous() const;
  void PlaceEnfants(std::size_t parent);

  const Acces& acces_;
  std::vector<Anneau> anneaux_;
  std::vector<std::size_t> racines_;
  std::vector<std::size_t> orphelins_;
  std::vector<Lieu> proches_;  // of PlaceEnfants(): of each child, nearest to its parent's start
};

// Nearest place of one ring, by a search tree when many are asked for.
class ArbreAnneaux::Cherche {
 public:
  Cherche(const Anneau& anneau, bool souvent);
  [[nodiscard]] Lieu PlusProche(Vec2 p) const;
  [[nodiscard]] double Profondeur() const { return anneau_.profondeur; }

 private:
  const Anneau& anneau_;
  std::optional<ArbreSegments> arbre_;
};

// Nearest place of a closed path; linear.
Lieu ProcheSurBoucle(const Chemin& c, Vec2 p);
// Turns a closed path so that it begins at a place of it.
void CommenceBoucle(Chemin& c, const Lieu& l);

}  // namespace pathwerk::poche
