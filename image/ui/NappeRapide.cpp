#include "image/ui/NappeRapide.h"

#include <algorithm>
#include <cmath>

#include "image/Vue.h"
#include "image/ui/Melange.h"

namespace ovelin {

namespace {

constexpr std::int64_t BordMax = 512;  // pixels; wider strokes are few, and thinned as such
constexpr std::int64_t Mot = 64;       // pixels in a word
constexpr double Loin = 1e6;           // pixels

}  // namespace

NappeRapide::NappeRapide(QImage& image, double echelle, double dx, double dy, double largeurMax)
    : image_(image),
      echelle_(echelle),
      dx_(dx),
      dy_(dy),
      bord_((std::min(static_cast<std::int64_t>(largeurMax * echelle / 2), BordMax) / Mot + 1) * Mot),
      colonnes_(image.width() + 2 * bord_),
      lignes_(image.height() + 2 * bord_),
      mots_((colonnes_ + Mot - 1) / Mot),
      milieux_(static_cast<std::size_t>(mots_ * lignes_)),
      peint_(milieux_.size()) {}

// A pixel for each step along the longer side.
void NappeRapide::Segment(double x0, double y0, double x1, double y1) {
  if (!(std::max({std::abs(x0), std::abs(y0), std::abs(x1), std::abs(y1)}) < Loin)) return;
  const auto pas = static_cast<std::int64_t>(std::ceil(std::max(std::abs(x1 - x0), std::abs(y1 - y0))));
  const double sx = pas > 0 ? (x1 - x0) / static_cast<double>(pas) : 0;
  const double sy = pas > 0 ? (y1 - y0) / static_cast<double>(pas) : 0;
  for (std::int64_t i = 0; i <= pas; ++i) {
    const auto t = static_cast<double>(i);
    Pose(static_cast<std::int64_t>(std::floor(x0 + t * sx)), static_cast<std::int64_t>(std::floor(y0 + t * sy)));
  }
}

void NappeRapide::Trace(std::span<const PointEcran> points, bool taches) {
  const auto bord = static_cast<double>(bord_);
  double x = 0;
  double y = 0;
  bool debut = true;
  for (const PointEcran& p : points) {
    const double nx = p.X * echelle_ + dx_ + bord;
    const double ny = p.Y * echelle_ + dy_ + bord;
    if (debut || taches) {
      Segment(nx, ny, nx, ny);
    } else {
      Segment(x, y, nx, ny);
    }
    debut = false;
    x = nx;
    y = ny;
  }
}

// Each row grows by a pixel to both sides.
void NappeRapide::Elargit(Bits& bits) const {
  const auto mots = static_cast<std::size_t>(mots_);
  for (std::size_t debut = 0; debut < bits.size(); debut += mots) {
    std::uint64_t* const r = bits.data() + debut;
    std::uint64_t avant = 0;
    for (std::size_t i = 0; i < mots; ++i) {
      const std::uint64_t ici = r[i];
      const std::uint64_t apres = i + 1 < mots ? r[i + 1] : 0;
      r[i] = ici | ici << 1U | avant >> (Mot - 1) | ici >> 1U | apres << (Mot - 1);
      avant = ici;
    }
  }
}

// From the outermost rows of the disc, which are the shortest, inward.
void NappeRapide::Grandit(std::int64_t rayon, Bits& surface) {
  const auto decalage = [this](std::int64_t lignes) { return static_cast<std::size_t>(lignes * mots_); };
  std::int64_t large = 0;
  for (std::int64_t dy = rayon; dy >= 0; --dy) {
    const auto demi = static_cast<std::int64_t>(std::sqrt(static_cast<double>(rayon * rayon - dy * dy)));
    for (; large < demi; ++large) Elargit(milieux_);
    const std::size_t n = milieux_.size() - decalage(dy);
    for (std::size_t i = 0; i < n; ++i) surface[i] |= milieux_[i + decalage(dy)];
    if (dy == 0) continue;
    for (std::size_t i = 0; i < n; ++i) surface[i + decalage(dy)] |= milieux_[i];
  }
}

void NappeRapide::Etale(double largeur, QRgb couleur) {
  Bits surface(milieux_.size());
  Grandit(std::clamp<std::int64_t>(std::llround(largeur * echelle_ / 2), 0, bord_), surface);
  const std::uint32_t opacite = Opacite256(couleur);
  const std::int64_t largeurImage = image_.width();
  for (std::int64_t y = 0; y < image_.height(); ++y) {
    auto* const pixels = reinterpret_cast<std::uint32_t*>(image_.scanLine(static_cast<int>(y)));
    const auto rangee = static_cast<std::size_t>((y + bord_) * mots_);
    for (std::int64_t mot = bord_ / Mot; mot < mots_; ++mot) {
      const std::size_t place = rangee + static_cast<std::size_t>(mot);
      const std::uint64_t neuf = surface[place] & ~peint_[place];
      peint_[place] |= surface[place];
      if (neuf == 0) continue;
      const std::int64_t gauche = mot * Mot - bord_;
      const std::int64_t debut = std::max<std::int64_t>(-gauche, 0);
      const std::int64_t fin = std::min<std::int64_t>(Mot, largeurImage - gauche);
      for (std::int64_t i = debut; i < fin; ++i) {
        if ((neuf >> static_cast<unsigned>(i) & 1U) == 0) continue;
        std::uint32_t& pixel = pixels[gauche + i];
        pixel = Mele(pixel, couleur, opacite);
      }
    }
  }
  std::fill(milieux_.begin(), milieux_.end(), 0);
}

}  // namespace ovelin
