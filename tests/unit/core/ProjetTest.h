// Lines of project files for the tests, put together by hand.
#pragma once

#include <string>
#include <vector>

namespace essai {

inline std::string Rempli(std::string s, std::size_t largeur) {
  s.resize(largeur, ' ');
  return s;
}

inline std::string LignePoint(const std::string& x, const std::string& y, const std::string& cde,
                              const std::string& seq) {
  return Rempli(x, 15) + Rempli(y, 15) + Rempli(cde, 15) + Rempli(seq, 15) + "\r\n";
}

inline std::string LigneSequence(const std::string& code, const std::string& signes,
                                 const std::string& profondeur) {
  return Rempli("$$Seq" + code + signes + profondeur, 60) + "\r\n";
}

// Two points of one path, enough for a project to be accepted.
inline std::string DeuxPoints(const std::string& code = " A") {
  return LignePoint("0", "0", "PD", code) + LignePoint("10", "20", "PD", code);
}

}  // namespace essai
