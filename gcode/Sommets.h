// What the preview of a program is made of: vertices in the program's millimetres, their colours, the wire box.
#pragma once

#include <cstdint>
#include <vector>

#include "gcode/Interprete.h"

namespace ovelin {

// What a stretch of the strip stands for.
enum class GenreMouvement : std::uint8_t { Depart, Rapide, Coupe, Plongee };

// A vertex of a line strip or of separate lines, in the layout of a pre-lit one. 32 bytes.
struct Vertex {
  float X = 0, Y = 0, Z = 0;     // mm
  std::uint32_t Reserve = 0;     // number of the program's line, from 1; 0 for the start and the box
  std::uint32_t Couleur = 0;     // of the stretch that ends here
  std::uint32_t Speculaire = 0;  // its GenreMouvement
  float U = 0, V = 0;
};
static_assert(sizeof(Vertex) == 32);

struct Vector3 {
  float X = 0, Y = 0, Z = 0;
  bool operator==(const Vector3&) const = default;
};
Vector3 MakeVector(float X, float Y, float Z);

// Where the channels of a colour lie in a picture's pixels.
struct MasquesCouleur {
  std::uint32_t rouge = 0x00FF0000, vert = 0x0000FF00, bleu = 0x000000FF;
};
// A colour in that format: each channel, 0 to 255, as that share of its mask, rounded to the nearest, within the
// mask.
std::uint32_t RGBtoDXCOLOR(std::int16_t Rouge, std::int16_t Vert, std::int16_t Bleu,
                           const MasquesCouleur& masques = {});

// Appends a point to the strip.
void CreationVertex(std::vector<Vertex>& strip, const Lieu& lieu, std::uint32_t couleur, GenreMouvement genre,
                    std::uint32_t ligne);
// Appends the twelve edges of a box as separate lines, 24 vertices: from the corner (X, Y, Z) on by the sizes.
void Cube(std::vector<Vertex>& lignes, const Lieu& coin, const Lieu& taille, std::uint32_t couleur);

}  // namespace ovelin
