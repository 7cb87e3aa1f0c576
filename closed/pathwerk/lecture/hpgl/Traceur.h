// The pen of a plot: strokes, polygon buffer, window, pages. Takes places on the sheet in plotter units and leaves
// paths in millimetres.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

#include "closed/pathwerk/lecture/Lecture.h"
#include "closed/pathwerk/lecture/hpgl/Fenetre.h"

namespace pathwerk::lecture::hpgl {

class HpglTraceur {
 public:
  // `pointsMax`: how many points may be held before the drawing counts as a bomb.
  HpglTraceur(Lecture& lecture, std::size_t pointsMax) : lecture_(lecture), pointsMax_(pointsMax) {}

  [[nodiscard]] Vec2 Position() const { return position_; }
  [[nodiscard]] bool Baissee() const { return baissee_; }
  [[nodiscard]] bool DansPolygone() const { return enPolygone_; }

  void Leve();
  void Baisse();
  // Moves, drawing when the pen is down. In polygon mode the place becomes a corner.
  void Va(Vec2 p);
  // The stroke ends here without a lift being a dot: the frame or the window changes.
  void Coupe();
  // The pen of that number; without `dessine` the holder is empty.
  void ChangePlume(double numero, bool dessine);
  // The next sheet. What is drawn on it is left out, because sheets would lie on top of each other.
  void Page();
  void PoseFenetre(std::optional<HpglFenetre> fenetre);
  void RemetPosition(Vec2 p);

  // A figure that has its own edge, whatever the pen: rectangle, circle, wedge; last point not repeated. `tampon`:
  // the figure passes through the polygon buffer, where EP and FP find it again.
  void Figure(std::vector<Vec2> contour, bool tampon);
  void MarqueIsolee(Vec2 p);

  void OuvrePolygone();      // PM0
  void FermeSousPolygone();  // PM1
  void FermePolygone();      // PM2
  void VidePolygone();
  void BordePolygone();    // EP
  void RemplitPolygone();  // FP

  // The instruction that drew was nothing but text or the like: a lowered pen is then no dot.
  void SansPointe() { pointe_ = false; }
  [[nodiscard]] bool Pointe() const { return pointe_; }

  // Flushes, and leaves out what was drawn without a pen when the rest was drawn with one.
  void Termine();

  // Too much is held, or a buffer was edged and filled so often that the time is out of all proportion.
  [[nodiscard]] bool TropDePoints() const {
    return points_ + trait_.size() + tampon_ > pointsMax_ || travail_ > 16 * pointsMax_;
  }
  [[nodiscard]] bool HorsLimites() const { return refusee_.has_value(); }
  [[nodiscard]] std::optional<Vec2> PlaceRefusee() const { return refusee_; }

 private:
  struct Sommet {
    Vec2 p;
    bool trace = false;  // reached with the pen down
  };
  using SousPolygone = std::vector<Sommet>;

  void FinitTrait();
  void EmetLigne(std::span<const Vec2> ligne);
  void EmetContour(std::span<const Vec2> contour);
  void Emet(std::span<const Vec2> points, Nature nature);

  Lecture& lecture_;
  std::size_t pointsMax_;
  std::size_t points_ = 0;       // in finished paths; a path costs as much as four points
  std::size_t travail_ = 0;      // corners that went through the window from the buffer
  std::size_t tampon_ = 0;       // in the polygon buffer
  std::optional<Vec2> refusee_;  // the first place out of bounds

  Vec2 position_;
  bool baissee_ = false;
  bool pointe_ = false;                  // lowered, and nothing drawn since
  bool plume_ = true;                    // a pen is in the holder
  double numero_ = 1;                    // its number
  std::optional<std::uint16_t> calque_;  // its layer, once it has drawn
  std::vector<Vec2> trait_;
  std::optional<HpglFenetre> fenetre_;

  bool pageSuivante_ = false;
  bool pageDessinee_ = false;
  std::vector<char> sansPlume_;  // for each path: drawn by pen 0

  bool enPolygone_ = false;
  bool borde_ = false;
  bool rempli_ = false;
  Vec2 positionAvant_;
  bool baisseeAvant_ = false;
  SousPolygone courant_;
  std::vector<SousPolygone> polygone_;
};

}  // namespace pathwerk::lecture::hpgl
