// Contents of the two trees of the main window: `TreeView1`, the drawing, and `TreeView2`, the tool path.
//
// A tree is flat: one root, one group for each path (or piece of the tool path) in order, and below a group its
// points, those of a long one in a fold of their own from some place on. A group is made when the tree is filled; a
// point line is made when it is asked for by its place, out of the document as it stands then, so that a drawing of
// a million points fills at once.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "core/Document.h"
#include "toolpath/chemins/Calques.h"

namespace ovelin {

enum class NiveauNoeud : std::uint8_t { Racine = 0, Sequence = 1, Point = 2, Pli = 3 };

// Points of a path that stand below it at once; those behind them come in one further fold, so that a path of a
// million points is opened as fast as a short one.
inline constexpr std::size_t PointsSansPli = 200;

// One line as the window shows it. Colours as in the settings: red + 256 x green + 65536 x blue.
struct Noeud {
  NiveauNoeud niveau = NiveauNoeud::Racine;
  std::string texte;
  std::string cle;  // unique in its tree
  std::int32_t couleur = 0;
  std::int32_t etiquette = -1;  // of a point: its index in TraceInitial, or in its piece of the tool path
  bool gras = false;
  bool developpe = false;
  bool visible = false;  // to be brought into sight
  const char* image = "";
  const char* imageDeveloppe = "";
};

// A path, or a piece of the tool path, without its points.
struct GroupeArbre {
  Code2 code;
  std::string texte, cle;
  std::int32_t couleur = 0;
  std::int32_t premier = 0;  // index of its first point in its array
  std::int32_t nombre = 0;   // points
  std::int32_t entree = -1;  // index in TraceDecale; -1 in the tree of the drawing
  std::int32_t source = -1;  // index of the first point of its path in TraceInitial
  std::int32_t fiche = -1;   // of its record in Sequences
  bool selectionne = false;  // expanded, in sight, its first point bold and in sight
};

enum class SorteArbre : std::uint8_t { Initial, Decale };

struct Arbre {
  SorteArbre sorte = SorteArbre::Initial;
  Noeud racine;
  std::vector<GroupeArbre> groupes;
  PartageCalques partage = PartageCalques::Aucun;  // of the drawing, when the tree was filled

  // Line of a group, and of a point by its place in the group; nothing for what isn't there (any more).
  [[nodiscard]] std::optional<Noeud> Groupe(std::size_t groupe) const;
  [[nodiscard]] std::optional<Noeud> Point(std::size_t groupe, std::size_t rang) const;
  // Points that stand in the fold of a group, 0 without one, and its line: "+ 800 other points".
  [[nodiscard]] std::size_t PointsDuPli(std::size_t groupe) const;
  [[nodiscard]] std::optional<Noeud> Pli(std::size_t groupe) const;
  // The second column of a group: its path in words (see NomChemin), with its layer where there are several; ""
  // where that is gone.
  [[nodiscard]] std::string Nom(std::size_t groupe) const;
  // The colour that marks a group's path in the drawing, 0xRRGGBB; nothing where all have the same or it has none.
  [[nodiscard]] std::optional<std::uint32_t> CouleurCalque(std::size_t groupe) const;
  // The point behind such a line.
  [[nodiscard]] const PointTrace* PointDocument(std::size_t groupe, std::size_t rang) const;
};

inline constexpr std::int32_t CouleurAutreCde = 200 * 65536;                      // blue: no ordinary point
inline constexpr std::int32_t CouleurNonFraisee = 240 + 256 * 240 + 65536 * 240;  // grey

// Filling. The tree is cleared first; a document without points, or without a tool path, leaves the root alone.
void Remplissage_Trace_Initial(Arbre& arbre);
void Remplissage_Trace_Decale(Arbre& arbre);

// Groups as the selection wants them: those of selected paths expanded, in sight, their first point bold; the
// others collapsed. The group to bring into sight last, or -1.
std::int32_t MarqueSelection(Arbre& arbre);

// Headline "number:points pts width x height" with another size, found by its "pts"; as it is without one.
std::string RefaitTitre(const std::string& titre, double largeur, double hauteur);
// The headlines of a path after a change of one of its points (tree of the drawing).
void RefaitTitres(Arbre& arbre, Code2 code);

// What a click leaves for the window to show.
struct ResultatClic {
  bool fait = false;                // false: there is nothing at that place (any more)
  bool annuleEdition = false;       // the edit of a label, on TreeView1
  std::optional<PointTrace> croix;  // point to be marked by TraceCroix; its code is that of the path
  std::string TB_X, TB_Y;           // with `croix`
  bool initSeq = false;             // InitSeq is due
};
// On a point: it comes into focus, and its path. On a group: it alone is selected, and comes into focus. Then the
// first status panel shows SeqCourante.
ResultatClic ClicPoint(const Arbre& arbre, std::size_t groupe, std::size_t rang);
ResultatClic ClicSequence(const Arbre& arbre, std::size_t groupe);

}  // namespace ovelin
