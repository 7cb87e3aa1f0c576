#include "image/ui/TraitRapide.h"

#include <algorithm>
#include <cmath>

#include "image/ui/Melange.h"

namespace ovelin {

namespace {

// Pixels. A stretch that begins or ends farther out is left out: no picture is so large, and lines come cut to it.
constexpr float Loin = 1e6F;

}  // namespace

TraitRapide::TraitRapide(QImage& image)
    : pixels_(reinterpret_cast<std::uint32_t*>(image.bits())),
      rangee_(static_cast<std::int64_t>(image.bytesPerLine()) / static_cast<std::int64_t>(sizeof(std::uint32_t))),
      colonnes_(image.width()),
      lignes_(image.height()) {}

void TraitRapide::Crayon(QRgb couleur, int largeur) {
  couleur_ = couleur | 0xFF000000U;
  opacite_ = Opacite256(couleur);
  largeur_ = std::max(largeur, 1);
}

void TraitRapide::Motif(std::span<const float> motif) { motif_ = motif; }

void TraitRapide::Commence(float x, float y) {
  x_ = x;
  y_ = y;
  premiere_ = true;
  tiret_ = 0;
  reste_ = motif_.empty() ? 0 : motif_[0];
}

// The line goes on by this length; whether it is drawn there.
bool TraitRapide::Dessine(float longueur) {
  const bool dessine = tiret_ % 2 == 0;
  reste_ -= longueur;
  while (reste_ <= 0) {
    tiret_ = (tiret_ + 1) % motif_.size();
    reste_ += motif_[tiret_];
  }
  return dessine;
}

// `pas` along the line, `travers` across it. Couche: the line runs mostly sideways.
template <bool Couche>
void TraitRapide::Pixel(std::int32_t pas, std::int32_t travers) {
  const std::int32_t bornes = Couche ? lignes_ : colonnes_;
  const std::int32_t debut = travers - (largeur_ - 1) / 2;
  for (std::int32_t t = std::max(debut, 0); t < std::min(debut + largeur_, bornes); ++t) {
    const std::int64_t place = Couche ? t * rangee_ + pas : pas * rangee_ + t;
    pixels_[place] = opacite_ == 256 ? couleur_ : Mele(pixels_[place], couleur_, opacite_);
  }
}

// (x0, y0) to (x1, y1) in coordinates along and across.
template <bool Couche>
void TraitRapide::Trace(float x0, float y0, float x1, float y1) {
  const std::int32_t bornes = Couche ? colonnes_ : lignes_;
  const auto i0 = static_cast<std::int32_t>(std::floor(x0));
  const auto i1 = static_cast<std::int32_t>(std::floor(x1));
  const std::int32_t sens = i1 >= i0 ? 1 : -1;
  const float pente = x1 == x0 ? 0 : (y1 - y0) / (x1 - x0);
  const float bas = std::min(y0, y1);
  const float haut = std::max(y0, y1);
  const auto travers = [&](std::int32_t i) {
    const float y = y0 + (static_cast<float>(i) + 0.5F - x0) * pente;
    return static_cast<std::int32_t>(std::floor(std::clamp(y, bas, haut)));
  };
  if (motif_.empty()) {
    const std::int32_t debut = std::max(std::min(i0, i1), 0);
    const std::int32_t fin = std::min(std::max(i0, i1), bornes - 1);
    for (std::int32_t i = debut; i <= fin; ++i) Pixel<Couche>(i, travers(i));
    return;
  }
  // The pixel of the start is that of the stretch before.
  const std::int32_t pas = std::abs(i1 - i0) + (premiere_ ? 1 : 0);
  const float longueur = std::hypot(x1 - x0, y1 - y0);
  if (pas == 0) {
    Dessine(longueur);
    return;
  }
  std::int32_t i = premiere_ ? i0 : i0 + sens;
  for (std::int32_t n = 0; n < pas; ++n, i += sens) {
    if (Dessine(longueur / static_cast<float>(pas)) && i >= 0 && i < bornes) Pixel<Couche>(i, travers(i));
  }
}

void TraitRapide::Suit(float x, float y) {
  const auto proche = [](float v) { return std::abs(v) <= Loin; };
  if (!proche(x) || !proche(y) || !proche(x_) || !proche(y_)) {
    x_ = x;
    y_ = y;
    return;
  }
  if (std::abs(x - x_) >= std::abs(y - y_)) {
    Trace<true>(x_, y_, x, y);
  } else {
    Trace<false>(y_, x_, y, x);
  }
  premiere_ = false;
  x_ = x;
  y_ = y;
}

}  // namespace ovelin
