// A colour over another, in the 32 bits of a pixel. Inside of PeintScene.
#pragma once

#include <QRgb>
#include <cstdint>

namespace ovelin {

// Opacity of a colour, 0 to 256.
constexpr std::uint32_t Opacite256(QRgb couleur) {
  const std::uint32_t alpha = couleur >> 24U;
  return alpha + (alpha >> 7U);
}

// `dessus` over the opaque pixel `dessous`: two of the three channels at a time, each with room for the product.
constexpr std::uint32_t Mele(std::uint32_t dessous, std::uint32_t dessus, std::uint32_t opacite) {
  constexpr std::uint32_t RougeBleu = 0x00FF00FFU;
  constexpr std::uint32_t Vert = 0x0000FF00U;
  const std::uint32_t reste = 256 - opacite;
  const std::uint32_t rb = ((dessous & RougeBleu) * reste + (dessus & RougeBleu) * opacite) >> 8U;
  const std::uint32_t v = ((dessous & Vert) * reste + (dessus & Vert) * opacite) >> 8U;
  return 0xFF000000U | (rb & RougeBleu) | (v & Vert);
}

}  // namespace ovelin
