// The instructions of HP-GL and HP-GL/2.
//
// A mill follows lines, so a fill gives the outline of its area, dash patterns, pen widths and colours mean
// nothing, and letters of the plotter's own fonts, symbols and tick marks are left out and counted. The chord
// angles of arcs are not obeyed: they suit the pen of one machine, and the chords here keep the distance that the
// caller asks for.
#include "closed/pathwerk/lecture/hpgl/Machine.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "closed/pathwerk/lecture/hpgl/Encode.h"
#include "closed/pathwerk/lecture/hpgl/Formes.h"

namespace pathwerk::lecture::hpgl {

struct HpglTable {
  using Action = void (HpglMachine::*)(const HpglInstruction&);
  std::string_view nom;
  Action action;

  static constexpr std::size_t Lettres = 26;
  static constexpr std::size_t Rang(char a, char b) {
    return static_cast<std::size_t>(a - 'A') * Lettres + static_cast<std::size_t>(b - 'A');
  }
  // Actions by both letters of their name, null for none.
  template <std::size_t N>
  static constexpr auto ParNom(const std::array<HpglTable, N>& table) {
    std::array<Action, Lettres * Lettres> actions{};
    for (const HpglTable& t : table) actions[Rang(t.nom[0], t.nom[1])] = t.action;
    return actions;
  }
};

HpglMachine::Sorte HpglMachine::Execute(const HpglInstruction& i) {
  using M = HpglMachine;
  static constexpr auto Traces = std::to_array<HpglTable>({
      {"PA", &M::Absolu},
      {"PR", &M::Relatif},
      {"PU", &M::Haut},
      {"PD", &M::Bas},
      {"PE", &M::Encode},
      {"AA", &M::ArcAbsolu},
      {"AR", &M::ArcRelatif},
      {"AT", &M::TroisAbsolu},
      {"RT", &M::TroisRelatif},
      {"BZ", &M::BezierAbsolu},
      {"BR", &M::BezierRelatif},
      {"CI", &M::Cercle},
      {"EA", &M::RectangleAbsolu},
      {"RA", &M::RectangleAbsolu},
      {"ER", &M::RectangleRelatif},
      {"RR", &M::RectangleRelatif},
      {"EW", &M::Secteur},
      {"WG", &M::Secteur},
      {"PM", &M::Polygone},
      {"EP", &M::Borde},
      {"FP", &M::Remplit},
      {"IN", &M::Initialise},
      {"DF", &M::Defauts},
      {"IP", &M::Points},
      {"IR", &M::PointsRelatifs},
      {"SC", &M::Echelle},
      {"RO", &M::Rotation},
      {"IW", &M::Fenetre},
      {"SP", &M::Plume},
      {"PS", &M::Feuille},
      {"PC", &M::Couleur},
      {"PG", &M::Page},
      {"AF", &M::Page},
      {"AH", &M::Page},
      {"SM", &M::Symbole},
      {"LB", &M::Ecrit},
      {"PB", &M::Ecrit},
      {"XT", &M::Ecrit},
      {"YT", &M::Ecrit},
      {"UC", &M::Ecrit},
      {"BP", &M::Initialise},
  });
  // Attributes of pens, fills and letters, device control and output: nothing of them lies on the paper.
  static constexpr std::string_view InstructionsReglage =
      " AC AD AP AS BF BL CA CC CF CM CO CP CR CS CT CV DC DI DL DR DS DT DV EC ES FI FN FR FS FT GC GM GP IM IV "
      "KY LA"
      " LM LO LT MC MG MT NP NR OA OC OD OE OF OG OH OI OK OL OO OP OS OT OW PP PT PW QL RF RP RQ SA SB SD SI SL SR"
      " SS ST SV TD TL TR UF UL VN VS WD WU ";
  if (i.page) {
    traceur_.Page();
    return Sorte::Reglage;
  }
  static constexpr auto Actions = HpglTable::ParNom(Traces);
  if (const HpglTable::Action action = Actions[HpglTable::Rang(i.nom[0], i.nom[1])]) {
    (this->*action)(i);
    return Sorte::Trace;
  }
  if (InstructionsReglage.find(' ' + i.Nom() + ' ') != std::string_view::npos) return Sorte::Reglage;
  lecture_.Ignore(i.Nom());
  return Sorte::Inconnue;
}

// --- State -------------------------------------------------------------------------------------------------

void HpglMachine::Initialise(const HpglInstruction& i) {
  feuille_.Initialise();
  Defauts(i);
  plume_ = 1;
  traceur_.RemetPosition({0, 0});
  traceur_.ChangePlume(plume_, true);
}

void HpglMachine::Defauts(const HpglInstruction&) {
  if (traceur_.DansPolygone()) traceur_.FermePolygone();
  feuille_.SansEchelle();
  traceur_.PoseFenetre({});
  traceur_.VidePolygone();
  absolu_ = true;
}

void HpglMachine::Feuille(const HpglInstruction& i) { feuille_.PoseFeuille(i.nombres); }
void HpglMachine::Points(const HpglInstruction& i) { feuille_.PosePoints(i.nombres); }
void HpglMachine::PointsRelatifs(const HpglInstruction& i) { feuille_.PosePointsRelatifs(i.nombres); }
void HpglMachine::Echelle(const HpglInstruction& i) { feuille_.PoseEchelle(i.nombres); }
void HpglMachine::Rotation(const HpglInstruction& i) { feuille_.PoseRotation(i.nombres); }

// The window lies where its corners are on the sheet when it is set; later scales and turns leave it there.
void HpglMachine::Fenetre(const HpglInstruction& i) {
  const N n = i.nombres;
  if (n.size() < 4) {
    traceur_.PoseFenetre({});
    return;
  }
  const Vec2 a = feuille_.Place({n[0], n[1]});
  const Vec2 b = feuille_.Place({n[2], n[3]});
  if (!std::isfinite(a.x + a.y + b.x + b.y)) return;
  traceur_.PoseFenetre(
      HpglFenetre{{std::min(a.x, b.x), std::min(a.y, b.y)}, {std::max(a.x, b.x), std::max(a.y, b.y)}});
}

// Pen 0 is the empty holder, unless the plot gave it a colour.
void HpglMachine::Plume(const HpglInstruction& i) {
  plume_ = i.nombres.empty() ? 0 : i.nombres[0];
  traceur_.ChangePlume(plume_, plume_ != 0 || plumeZeroCouleur_);
}

void HpglMachine::Couleur(const HpglInstruction& i) {
  if (i.nombres.size() < 4 || i.nombres[0] != 0) return;
  plumeZeroCouleur_ = true;
  if (plume_ == 0) traceur_.ChangePlume(plume_, true);
}

void HpglMachine::Page(const HpglInstruction&) { traceur_.Page(); }

void HpglMachine::Symbole(const HpglInstruction& i) {
  if (!i.texte.empty()) lecture_.Ignore("SM");
}

// A label would carry the pen along; plots place the next one themselves.
void HpglMachine::Ecrit(const HpglInstruction& i) {
  traceur_.SansPointe();
  lecture_.Ignore(i.Nom());
  if (i.interrompue) lecture_.rapport.Tronque = true;
}

// --- Moves -------------------------------------------------------------------------------------------------

// Pairs in the mode in force. A single number at the end is nothing.
void HpglMachine::Deplace(N n) {
  for (std::size_t k = 0; k + 1 < n.size(); k += 2) {
    if (absolu_) {
      traceur_.Va(feuille_.Place({n[k], n[k + 1]}));
    } else {
      const Vec2 p = traceur_.Position();
      const Vec2 d = feuille_.Pas({n[k], n[k + 1]});
      traceur_.Va({p.x + d.x, p.y + d.y});
    }
  }
}

void HpglMachine::Suit(const std::vector<Vec2>& places) {
  for (const Vec2 p : places) traceur_.Va(p);
}

void HpglMachine::Absolu(const HpglInstruction& i) {
  absolu_ = true;
  Deplace(i.nombres);
}

void HpglMachine::Relatif(const HpglInstruction& i) {
  absolu_ = false;
  Deplace(i.nombres);
}

void HpglMachine::Haut(const HpglInstruction& i) {
  traceur_.Leve();
  Deplace(i.nombres);
}

void HpglMachine::Bas(const HpglInstruction& i) {
  traceur_.Baisse();
  Deplace(i.nombres);
}

// Draws whatever the pen was before, and leaves it as the last pair had it. Pairs are steps unless flagged.
//
// A lowered pen that goes nowhere is no hole here: drivers put such an empty step behind every move with the pen
// up, and shade areas with thousands of them. They are left out and counted.
void HpglMachine::Encode(const HpglInstruction& i) {
  HpglDecodeur decodeur(i.texte);
  const auto oublie = [this] {
    if (!traceur_.Pointe()) return;
    lecture_.Ignore("DOT");
    traceur_.SansPointe();
  };
  HpglElement e;
  while (decodeur.Suivant(e) && !traceur_.TropDePoints() && !traceur_.HorsLimites()) {
    if (e.leve || e.genre == HpglElement::Genre::Plume) oublie();
    if (e.genre == HpglElement::Genre::Plume) {
      if (traceur_.DansPolygone()) continue;
      plume_ = e.valeur.x;
      traceur_.ChangePlume(plume_, plume_ != 0 || plumeZeroCouleur_);
      continue;
    }
    if (e.leve) {
      traceur_.Leve();
    } else {
      traceur_.Baisse();
    }
    const Vec2 p = traceur_.Position();
    const Vec2 d = feuille_.Pas(e.valeur);
    traceur_.Va(e.absolu ? feuille_.Place(e.valeur) : Vec2{p.x + d.x, p.y + d.y});
  }
  oublie();
  if (i.interrompue) lecture_.rapport.Tronque = true;
}

void HpglMachine::ArcAbsolu(const HpglInstruction& i) {
  if (i.nombres.size() < 3) return;
  Suit(HpglArc(feuille_, Ici(), {i.nombres[0], i.nombres[1]}, i.nombres[2], fleche_));
}

void HpglMachine::ArcRelatif(const HpglInstruction& i) {
  if (i.nombres.size() < 3) return;
  const Vec2 p = Ici();
  Suit(HpglArc(feuille_, p, {p.x + i.nombres[0], p.y + i.nombres[1]}, i.nombres[2], fleche_));
}

void HpglMachine::TroisPoints(N n, bool absolu) {
  if (n.size() < 4) return;
  const Vec2 p = Ici();
  const Vec2 o = absolu ? Vec2{} : p;
  Suit(HpglArcTroisPoints(feuille_, p, {o.x + n[0], o.y + n[1]}, {o.x + n[2], o.y + n[3]}, fleche_));
}

void HpglMachine::TroisAbsolu(const HpglInstruction& i) { TroisPoints(i.nombres, true); }
void HpglMachine::TroisRelatif(const HpglInstruction& i) { TroisPoints(i.nombres, false); }

// Three pairs a curve; relative ones are all counted from the start of their curve.
void HpglMachine::Bezier(N n, bool absolu) {
  for (std::size_t k = 0; k + 5 < n.size() && !traceur_.TropDePoints(); k += 6) {
    const Vec2 p = Ici();
    const Vec2 o = absolu ? Vec2{} : p;
    Suit(HpglBezier(feuille_, p, {o.x + n[k], o.y + n[k + 1]}, {o.x + n[k + 2], o.y + n[k + 3]},
                    {o.x + n[k + 4], o.y + n[k + 5]}, fleche_));
  }
}

void HpglMachine::BezierAbsolu(const HpglInstruction& i) { Bezier(i.nombres, true); }
void HpglMachine::BezierRelatif(const HpglInstruction& i) { Bezier(i.nombres, false); }

// --- Figures -----------------------------------------------------------------------------------------------

void HpglMachine::Cercle(const HpglInstruction& i) {
  if (i.nombres.empty()) return;
  if (i.nombres[0] == 0) {
    traceur_.SansPointe();
    if (!traceur_.DansPolygone()) traceur_.MarqueIsolee(traceur_.Position());
    return;
  }
  traceur_.Figure(HpglCercle(feuille_, Ici(), i.nombres[0], fleche_), false);
}

void HpglMachine::Rectangle(Vec2 coin) {
  if (traceur_.DansPolygone()) return;
  const Vec2 p = Ici();
  // The first corner is the pen's own place, without the rounding of a way there and back.
  traceur_.Figure(
      {traceur_.Position(), feuille_.Place({coin.x, p.y}), feuille_.Place(coin), feuille_.Place({p.x, coin.y})},
      true);
}

void HpglMachine::RectangleAbsolu(const HpglInstruction& i) {
  if (i.nombres.size() >= 2) Rectangle({i.nombres[0], i.nombres[1]});
}

void HpglMachine::RectangleRelatif(const HpglInstruction& i) {
  if (i.nombres.size() < 2) return;
  const Vec2 p = Ici();
  Rectangle({p.x + i.nombres[0], p.y + i.nombres[1]});
}

void HpglMachine::Secteur(const HpglInstruction& i) {
  const N n = i.nombres;
  if (n.size() < 3 || n[0] == 0 || traceur_.DansPolygone()) return;
  traceur_.Figure(HpglSecteur(feuille_, Ici(), n[0], n[1], n[2], fleche_), true);
}

void HpglMachine::Polygone(const HpglInstruction& i) {
  const double quoi = i.nombres.empty() ? 0 : i.nombres[0];
  if (quoi == 0) traceur_.OuvrePolygone();
  if (quoi == 1) traceur_.FermeSousPolygone();
  if (quoi == 2) traceur_.FermePolygone();
}

void HpglMachine::Borde(const HpglInstruction&) { traceur_.BordePolygone(); }
void HpglMachine::Remplit(const HpglInstruction&) { traceur_.RemplitPolygone(); }

}  // namespace pathwerk::lecture::hpgl
