#include "run/Dialectes.h"

#include <algorithm>
#include <vector>

#include "core/Nombres.h"

namespace ovelin {

namespace {

Dialecte Propre() {
  Dialecte d;
  d.nom = "own";
  d.titre = "OVELIN";
  d.extension = "nc";
  d.prescrit = true;
  d.unites = "G71";
  d.broche = "M03";
  d.arret = "M05";
  d.fin = {"M02"};
  d.jeu = JeuCommentaire::Windows1252;
  d.motsLongs = true;
  d.decimalesAvance = 5;
  d.avanceSeule = true;
  return d;
}

// What the others have in common: plane, absolute coordinates and feed a minute are said, a word a line, so that a
// reader that knows one of them not passes over that one alone.
Dialecte Courant(const char* nom, const char* titre, const char* extension) {
  Dialecte d;
  d.nom = nom;
  d.titre = titre;
  d.extension = extension;
  d.unites = "G21";
  d.debut = {"G17", "G90", "G94"};
  d.broche = "M3 S{S}";
  d.attente = "G4 P{s}";
  d.arret = "M5";
  d.fin = {"M30"};
  d.repete = false;
  d.arcs = true;
  return d;
}

// Its line buffer holds 80 characters. Bytes above 127 and "!", "?", "~" act at once even inside a comment, which
// is why comments are ASCII. It stops at any word that it does not know: no tool change, no "%".
Dialecte Grbl() {
  Dialecte d = Courant("grbl", "GRBL 1.1", "gcode");
  d.longueur = 80;
  d.ecartRayons = 0.005;
  return d;
}

// G91.1, centres of arcs as seen from the start, stands before G90: who takes it for G91 is absolute again at once.
// Left to itself this control rounds corners as far as speed asks; a hundredth of a millimetre is what curves are
// chorded to.
Dialecte LinuxCnc() {
  Dialecte d = Courant("linuxcnc", "LinuxCNC", "ngc");
  d.debut = {"G17", "G91.1", "G90", "G94", "G40", "G49", "G80", "G64 P0.01"};
  d.fin = {"M2"};
  d.longueur = 255;
  d.ecartRayons = 0.005;
  return d;
}

// Its centres of arcs are absolute or not by a setting of its own, so that the word for it is always said.
Dialecte Mach() {
  Dialecte d = Courant("mach", "Mach3 / Mach4", "tap");
  d.debut = {"G17", "G91.1", "G90", "G94", "G40", "G49", "G80"};
  d.outil = {"T1 M6"};
  d.longueur = 120;
  return d;
}

// ISO 6983: words of two digits, G71 for millimetres, numbered lines between "%".
Dialecte Iso() {
  Dialecte d = Courant("iso", "ISO 6983", "iso");
  d.pourcent = true;
  d.unites = "G71";
  d.outil = {"T01 M06"};
  d.broche = "M03 S{S}";
  d.attente = "G04 P{s}";
  d.arret = "M05";
  d.motsLongs = true;
  d.repete = true;
  d.numeros = 10;
  d.longueur = 80;
  return d;
}

}  // namespace

std::span<const Dialecte> TableDialectes() {
  static const std::vector<Dialecte> Lignes{Propre(), Grbl(), LinuxCnc(), Mach(), Iso()};
  return Lignes;
}

const Dialecte& DialectePropre() { return TableDialectes().front(); }

const Dialecte* DialecteDeTable(std::string_view nom) {
  const auto table = TableDialectes();
  const auto ligne = std::ranges::find_if(
      table, [cherche = Majuscules(nom)](const Dialecte& d) { return Majuscules(d.nom) == cherche; });
  return ligne == table.end() ? nullptr : &*ligne;
}

}  // namespace ovelin
