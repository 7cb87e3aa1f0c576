// The mouse over the picture PB1: selection, the two tools, panning, position texts. The window hands over plain
// events and does what comes back.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "core/Document.h"
#include "workspace/Module_Vue.h"

namespace ovelin {

// The point of the drawing's segments that is nearest to (x, y), mm, and the code of its path. Pairs of
// neighbouring points of one path; a pair in one place is a point. Of equals the first. The code is blank when
// there is none.
struct SegmentProche {
  Code2 code;
  float X = 0, Y = 0;
};
SegmentProche SegmentLePlusProche(const std::vector<PointTrace>& points, std::int32_t nbPoints, float x, float y);

enum BoutonSouris : unsigned { BoutonAucun = 0, Bouton1 = 1, Bouton2 = 2, BoutonMilieu = 4 };

// A press or release names its button, a movement all that are held. Place in the picture, twips.
struct EvenementSouris {
  unsigned bouton = BoutonAucun;
  bool controle = false, majuscule = false;
  float X = 0, Y = 0;
};

enum class Curseur : std::uint8_t { Defaut, CiblePetit, Rectangle, Main };

enum class Glissement : std::uint8_t {
  Aucun,
  Loupe,      // rubber band of the zoom tool
  Selection,  // rubber band with Shift, no tool: the paths inside
  Panorama,
  Prise,  // of the selection, or nothing that can be dragged (Module_Prise.h)
};

struct EtatSouris {
  bool mnu_Lever = false;          // attachment tool
  bool mnu_ZoomSelection = false;  // rectangle zoom tool
  Glissement glissement = Glissement::Aucun;
  float x0 = 0, y0 = 0;       // where the drag began, twips
  float x1 = 0, y1 = 0;       // where it is
  float ecart = 0;            // how far it has been from its start, twips
  Code2 bascule = CodeAucun;  // path that the press of a selection with Control toggled
};
extern EtatSouris Souris;

// What the window has to do.
struct SuiteSouris {
  bool redessine = false;  // Dessin
  bool initSeq = false;    // panel Frame_Sequence, nodes of the selection in both trees
  bool bande = false;      // the rubber band appears, moves or goes (BandeSouris)
  bool outils = false;     // buttons mnu_Lever and mnu_ZoomSelection, pointer and tool tip
  bool prise = false;      // what is dragged has moved, or is let go
  bool positions = false;  // the three panels take `panneaux`
  bool menu = false;       // context menu of the picture
  bool pageOutil = false;  // page of the parameters (Option1), focus on TB_LargeurEncoche
  std::array<std::string, 3> panneaux;
};

// The buttons of the tools: they exclude each other. mnu_Lever without a width of notches shows EncocheSansLargeur
// and stays off.
SuiteSouris mnu_Lever_Click();
SuiteSouris mnu_ZoomSelection_Click();
// Escape: a drag ends without effect, otherwise a tool is laid down, otherwise nothing is selected any more.
SuiteSouris Echappe();
// Both off and no drag: a drawing is opened.
SuiteSouris RelacheOutils();

SuiteSouris PB1_MouseDown(const EvenementSouris& e, const TailleImage& taille);
SuiteSouris PB1_MouseMove(const EvenementSouris& e, const TailleImage& taille);
SuiteSouris PB1_MouseUp(const EvenementSouris& e, const TailleImage& taille);

// Pointer and tool tip of the moment; the running rubber band, false when there is none.
Curseur CurseurSouris();
std::string BulleSouris();
bool BandeSouris(float& x0, float& y0, float& x1, float& y1);

// "x : 12.30 mm", "y : 4.00 mm" and an empty one; all empty without a drawing.
std::array<std::string, 3> PanneauxPosition(const TailleImage& taille, float x, float y);

}  // namespace ovelin
