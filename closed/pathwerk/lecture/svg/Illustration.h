// Draws the elements of a document as paths.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <pugixml.hpp>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "closed/pathwerk/lecture/Lecture.h"
#include "closed/pathwerk/lecture/svg/Apparence.h"
#include "closed/pathwerk/lecture/svg/Cadrage.h"
#include "closed/pathwerk/lecture/svg/Lettres.h"
#include "closed/pathwerk/lecture/svg/Matrice.h"
#include "closed/pathwerk/lecture/svg/Plume.h"
#include "closed/pathwerk/lecture/svg/ReglesCss.h"

namespace pathwerk::lecture::svg {

// What stands around an element.
struct Entourage {
  Matrice m;  // user units -> mm, Y upward
  Apparence apparence;
  std::string_view calque;          // name of the layer around it
  double largeur = 0, hauteur = 0;  // of the nearest viewport, user units: what 100 % is
  int profondeur = 0;
};

// How the shapes of a document are shared out.
struct Partage {
  std::size_t octets = 0;  // of their data that are drawn at a time; 0: each shape as it comes
  unsigned fils = 1;
};

class Illustration {
 public:
  // `texte`: the file, for the lines of refusals; empty when its bytes aren't those of the document.
  Illustration(const pugi::xml_document& document, std::string_view texte, const OptionsLecture& options,
               const TraceLettres& lettres, Lecture& lecture, Partage partage = {});

  // The outermost element and all in it. `octets`: length of the file, which bounds points and time.
  void Dessine(pugi::xml_node racine, std::size_t octets);
  // Shapes were shared out, and the drawing is one of those that tell of it: it is refused, or has more kinds of
  // things left out than are told apart. Then it has to be drawn with each shape as it comes.
  [[nodiscard]] bool Douteux() const;

 private:
  struct Inventaire;  // identities and style sheets

  // A shape on its way to its paths. What stands between its element and them is drawn by itself, so that several
  // threads can do it for several shapes.
  struct Tache {
    enum class Reste : std::uint8_t { Rien, Chemin, Suite, SuiteFermee };
    Tache(const Matrice& repere, double fleche, std::size_t pointsMax)
        : m(repere), plume(repere, fleche, pointsMax) {}
    void Trace();
    Matrice m;
    Plume plume;
    Reste reste = Reste::Rien;  // what the pen has still to draw
    bool lisible = true;
    bool fond = false, trait = false, boutRond = false;  // as it is seen
    std::optional<std::uint32_t> couleur;
    std::string_view donnees;
    std::string_view calque;
    pugi::xml_node element;
  };

  // Elements. They return when the drawing is refused.
  void Enfants(pugi::xml_node element, const Entourage& autour);
  void Element(pugi::xml_node element, const Entourage& autour);
  void Contenu(pugi::xml_node element, std::string_view nom, const Entourage& ici);
  void Choix(pugi::xml_node element, const Entourage& ici);
  void Reference(pugi::xml_node element, const Entourage& ici);
  void Fragment(pugi::xml_node element, const Entourage& ici, double largeur, double hauteur);
  void FragmentDe(pugi::xml_node element, const Entourage& ici, pugi::xml_node place);
  void Absent(pugi::xml_node element, std::string_view nom);

  // Shapes.
  bool Forme(pugi::xml_node element, std::string_view nom, const Entourage& ici);
  void TraceRect(pugi::xml_node element, const Entourage& ici, Plume& plume) const;
  void TraceRonde(pugi::xml_node element, bool cercle, const Entourage& ici, Plume& plume) const;
  static void TracePoints(std::string_view points, bool ferme, Plume& plume);
  Tache TacheDe(const Entourage& ici, const Apparence& a, pugi::xml_node element, std::size_t pointsMax) const;
  void Pose(Tache&& tache);
  void Acheve(Tache& tache);
  void Emet(Tache& tache);
  // Draws all shapes that wait, and makes their paths in their order.
  void Vide();

  // Texts.
  struct Lettrage;
  void Texte(pugi::xml_node element, const Entourage& ici);
  void Passage(pugi::xml_node element, const Entourage& ici, Lettrage& lettrage);
  void Mots(std::string_view mots, const Entourage& ici, Lettrage& lettrage);
  void Lettres(const std::string& texte, const Entourage& ici, Lettrage& lettrage);
  void Etiquette(Lettrage& lettrage);

  // Pieces.
  Dits DitsDe(pugi::xml_node element);
  static double Longueur(pugi::xml_node element, const char* nom, double em, double tout, double sinon);
  [[nodiscard]] std::size_t PointsRestants() const { return pointsMax_ - points_; }
  [[nodiscard]] std::size_t PointsDAvance(std::size_t octets) const;
  // What an element costs of the time that there is. False when it is used up, and the drawing refused.
  bool Prend(std::size_t travail, pugi::xml_node element);
  void Refuse(Erreur numero, pugi::xml_node element);
  void Ignore(std::string_view genre, long nombre = 1, pugi::xml_node element = {});
  [[nodiscard]] long LigneDe(pugi::xml_node element) const;
  void Releve(const TailleDessin& taille);

  const pugi::xml_document& document_;
  const OptionsLecture& options_;
  const TraceLettres& lettres_;
  Lecture& lecture_;
  double fleche_;
  std::vector<std::size_t> finsDeLigne_;
  std::string_view prefixe_;  // of the names of this vocabulary
  std::size_t points_ = 0, pointsMax_ = 0;
  std::size_t travail_ = 0, travailMax_ = 0;
  std::unordered_map<std::string_view, pugi::xml_node> parIdentite_;
  std::vector<pugi::xml_node> ouvertes_;  // referred to, and being drawn
  ReglesCss regles_;
  Partage partage_;
  std::vector<Tache> taches_;  // that wait
  std::size_t octetsPoses_ = 0;
};

}  // namespace pathwerk::lecture::svg
