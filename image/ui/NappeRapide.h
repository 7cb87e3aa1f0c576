// Wide strokes as one surface, by bits. Inside of PeintScene.
#pragma once

#include <QImage>
#include <QRgb>
#include <cstdint>
#include <span>
#include <vector>

#include "image/Scene.h"

namespace ovelin {

// A surface of thousands of strokes of one width. The middles of the strokes are set in a field of one bit a pixel,
// which then grows by a disc of half the width:
//
//      . . . . . . .          . # # # . . .
//      . # # . . . .    ->    # # # # # . .       64 pixels at a time, for each row of the disc the field
//      . . . # . . .          # # # # # # .       shifted by so much to both sides and laid over the row
//      . . . . . . .          . # # # # # .
//
// so that its cost is that of the picture and of the disc's height, whatever there is to draw.
class NappeRapide {
 public:
  // `image` has 32 bits a pixel and outlives the object. A place (twips) stands at the pixel `echelle` times it and
  // (dx, dy) on.
  // No stroke will be wider than `largeurMax` (twips).
  NappeRapide(QImage& image, double echelle, double dx, double dy, double largeurMax);

  // The middle of a stroke, or places of dots.
  void Trace(std::span<const PointEcran> points, bool taches);
  // The strokes since the last call, this wide (twips), over the picture; not where an earlier call has painted.
  void Etale(double largeur, QRgb couleur);

 private:
  using Bits = std::vector<std::uint64_t>;
  void Pose(std::int64_t x, std::int64_t y) {
    if (x < 0 || y < 0 || x >= colonnes_ || y >= lignes_) return;
    const auto place = static_cast<std::size_t>(y * mots_ + x / 64);
    milieux_[place] |= std::uint64_t{1} << static_cast<unsigned>(x % 64);
  }
  void Grandit(std::int64_t rayon, Bits& surface);
  void Elargit(Bits& bits) const;
  void Segment(double x0, double y0, double x1, double y1);

  QImage& image_;
  double echelle_, dx_, dy_;
  std::int64_t bord_;  // pixels around the picture: half the width of the strokes may reach in from there
  std::int64_t colonnes_ = 0, lignes_ = 0, mots_ = 0;
  Bits milieux_, peint_;
};

}  // namespace ovelin
