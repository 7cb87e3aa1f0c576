// The drawing and its tool path as a picture: source in its colour, tool path in its, moves in the air dotted,
// attachment points marked, a scale in mm.
#pragma once

#include <string>

namespace ovelin::cli {

// The bytes of the file; "" when it can't be made. A picture is at most 1600 x 1200 units.
std::string ImageSvg(bool initial, bool outil);
std::string ImagePng(bool initial, bool outil);

}  // namespace ovelin::cli
