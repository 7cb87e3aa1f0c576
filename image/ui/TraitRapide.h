// Lines without smoothing, straight into the pixels of a picture. Inside of PeintScene.
#pragma once

#include <QImage>
#include <QRgb>
#include <cstdint>
#include <span>

namespace ovelin {

// Lines of a whole number of pixels in width, full or dashed. The stroker of the toolkit builds an outline for each
// line wider than a pixel; a drawing of a million points then takes seconds on a screen of twice the resolution.
//
// A stretch walks along its longer side, a pixel at a time, from the pixel of its start to that of its end, and
// puts `largeur` pixels across it:
//
//        # #
//      # # # #          largeur 2, a stretch that runs mostly sideways
//    # #     # #
//  # #         # #
//
// Dashes are measured along the line and go on from one stretch to the next.
class TraitRapide {
 public:
  // `image` has 32 bits a pixel and outlives the object.
  explicit TraitRapide(QImage& image);

  // Lengths in pixels, drawn and left out in turn; none for a full line.
  void Motif(std::span<const float> motif);
  // The colour's alpha counts.
  void Crayon(QRgb couleur, int largeur);
  // A line begins at this place; coordinates in pixels, the middle of the first one is 0.5.
  void Commence(float x, float y);
  void Suit(float x, float y);

 private:
  template <bool Couche>
  void Trace(float x0, float y0, float x1, float y1);
  template <bool Couche>
  void Pixel(std::int32_t pas, std::int32_t travers);
  bool Dessine(float longueur);

  std::uint32_t* pixels_;
  std::int64_t rangee_;
  std::int32_t colonnes_, lignes_;
  std::int32_t largeur_ = 1;
  QRgb couleur_ = 0;
  std::uint32_t opacite_ = 256;  // of 256
  std::span<const float> motif_;
  std::size_t tiret_ = 0;  // where the dashes stand: which one ...
  float reste_ = 0;        // ... and how much of it is left, pixels
  bool premiere_ = true;   // of the line no stretch has been drawn
  float x_ = 0, y_ = 0;
};

}  // namespace ovelin
