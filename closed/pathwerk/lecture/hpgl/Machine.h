// What each instruction of a plot does.
#pragma once

#include <optional>
#include <span>
#include <string_view>

#include "closed/pathwerk/lecture/Lecture.h"
#include "closed/pathwerk/lecture/hpgl/Feuille.h"
#include "closed/pathwerk/lecture/hpgl/Lexeur.h"
#include "closed/pathwerk/lecture/hpgl/Traceur.h"

namespace pathwerk::lecture::hpgl {

class HpglMachine {
 public:
  HpglMachine(const OptionsLecture& options, Lecture& lecture, std::size_t pointsMax)
      : fleche_(options.Fleche), lecture_(lecture), traceur_(lecture, pointsMax) {}

  enum class Sorte { Trace, Reglage, Inconnue };
  // Carries the instruction out and says whether it belongs to those that a plot consists of.
  Sorte Execute(const HpglInstruction& instruction);
  void Termine() { traceur_.Termine(); }

  [[nodiscard]] bool TropDePoints() const { return traceur_.TropDePoints(); }
  [[nodiscard]] bool HorsLimites() const { return traceur_.HorsLimites(); }
  // In plotter units, once HorsLimites says so and the pen was led there.
  [[nodiscard]] std::optional<Vec2> PlaceRefusee() const { return traceur_.PlaceRefusee(); }
  [[nodiscard]] bool Baissee() const { return traceur_.Baissee(); }

 private:
  friend struct HpglTable;
  using N = std::span<const double>;

  void Initialise(const HpglInstruction& i);
  void Defauts(const HpglInstruction& i);
  void Feuille(const HpglInstruction& i);
  void Points(const HpglInstruction& i);
  void PointsRelatifs(const HpglInstruction& i);
  void Echelle(const HpglInstruction& i);
  void Rotation(const HpglInstruction& i);
  void Fenetre(const HpglInstruction& i);
  void Plume(const HpglInstruction& i);
  void Couleur(const HpglInstruction& i);
  void Absolu(const HpglInstruction& i);
  void Relatif(const HpglInstruction& i);
  void Haut(const HpglInstruction& i);
  void Bas(const HpglInstruction& i);
  void Encode(const HpglInstruction& i);
  void ArcAbsolu(const HpglInstruction& i);
  void ArcRelatif(const HpglInstruction& i);
  void TroisAbsolu(const HpglInstruction& i);
  void TroisRelatif(const HpglInstruction& i);
  void BezierAbsolu(const HpglInstruction& i);
  void BezierRelatif(const HpglInstruction& i);
  void Cercle(const HpglInstruction& i);
  void RectangleAbsolu(const HpglInstruction& i);
  void RectangleRelatif(const HpglInstruction& i);
  void Secteur(const HpglInstruction& i);
  void Polygone(const HpglInstruction& i);
  void Borde(const HpglInstruction& i);
  void Remplit(const HpglInstruction& i);
  void Page(const HpglInstruction& i);
  void Symbole(const HpglInstruction& i);
  void Ecrit(const HpglInstruction& i);

  void Deplace(N n);
  void Suit(const std::vector<Vec2>& places);
  void Rectangle(Vec2 coin);
  void TroisPoints(N n, bool absolu);
  void Bezier(N n, bool absolu);
  [[nodiscard]] Vec2 Ici() const { return feuille_.Unites(traceur_.Position()); }

  double fleche_;
  Lecture& lecture_;
  HpglFeuille feuille_;
  HpglTraceur traceur_;
  bool absolu_ = true;
  bool plumeZeroCouleur_ = false;
  double plume_ = 1;
};

}  // namespace pathwerk::lecture::hpgl
