// Drawings as text, and their opening.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "core/Nombres.h"
#include "workspace/Module_Ouverture.h"

namespace essai {

// DXF text of polylines; the first number of each list tells whether it is closed.
struct Ligne {
  bool fermee;
  std::vector<std::pair<double, double>> points;
};
inline std::string Dxf(const std::vector<Ligne>& lignes) {
  std::string t = "0\r\nSECTION\r\n2\r\nENTITIES\r\n";
  for (const Ligne& l : lignes) {
    t += "0\r\nLWPOLYLINE\r\n8\r\n0\r\n90\r\n" + std::to_string(l.points.size()) + "\r\n70\r\n" +
         (l.fermee ? "1" : "0") + "\r\n";
    for (const auto& [x, y] : l.points)
      t += "10\r\n" + ovelin::TexteNombre(x) + "\r\n20\r\n" + ovelin::TexteNombre(y) + "\r\n";
  }
  return t + "0\r\nENDSEC\r\n0\r\nEOF\r\n";
}
inline const std::string CarreDxf = Dxf({{true, {{10, 10}, {50, 10}, {50, 50}, {10, 50}}}});

inline ovelin::Ouverture Ouvre(const std::string& chemin, ovelin::ContenuLu* contenu = nullptr) {
  return ovelin::mnu_Ouvrir(chemin, ovelin::OptionsOuverture{}, contenu);
}

}  // namespace essai
