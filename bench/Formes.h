// Drawings made for the benchmarks: smooth closed contours on a grid, so that work grows with the points alone.
#pragma once

#include <string>
#include <vector>

#include "closed/Pathwerk.h"

namespace banc {

// `contours` lobed circles of `points` points each, clockwise, 20 mm across, 25 mm apart.
std::vector<std::vector<pathwerk::PointTrace>> Contours(int contours, int points);
// The same as a DXF text of closed LWPOLYLINEs; with noise, as scanned: ten times as great, and each point nearer
// to the middle or farther from it by up to `bruit` mm.
std::string DessinDxf(int contours, int points, double bruit = 0);
// A file of about that many bytes as CAD programs write them, with handles, layers and all digits: by turns a
// circle of 400 LINEs and an LWPOLYLINE of 1,000 vertices. The number of points in it.
long EcritDessinCAO(const std::string& chemin, std::size_t octets);
// One closed lobed circle of 200 mm.
std::vector<pathwerk::PointTrace> Contour(int points);

// Greatest resident size of this process so far, MB.
double MemoireMo();

}  // namespace banc
