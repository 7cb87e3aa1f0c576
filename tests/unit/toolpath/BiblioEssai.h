// A scripted geometry library: each test says what it answers, and sees what it was asked.
#pragma once

#include <set>
#include <string>
#include <utility>
#include <vector>

#include "core/DocumentCourant.h"
#include "tests/support/Support.h"
#include "toolpath/traces/Bibliotheque.h"

namespace essai {

struct AppelDecal {
  std::vector<ovelin::PointTrace> points;
  float tolerance = 0;
  float decal = 0;
  std::int32_t recouvrement = 0;
};

// Installed by its constructor; RemetTout takes it out again. The offset is the path itself; it fails for the codes
// in `echecs`, and gives `morceaux` pieces otherwise.
class BiblioEssai {
 public:
  BiblioEssai() {
    using namespace ovelin;
    Biblio.DecalSequence = [this](std::vector<PointTrace>& p, float tolerance, float decal, std::int32_t r) {
      appels.push_back({p, tolerance, decal, r});
      if (echecs.contains(p.front().Seq)) return 0;
      const std::vector<PointTrace> source = p;
      p.clear();
      for (int m = 0; m < morceaux; ++m) {
        for (PointTrace q : source) {
          q.Seq = Code2(u'#', static_cast<char16_t>(u'0' + m));
          p.push_back(q);
        }
      }
      return 1;
    };
    Biblio.NettoyageFichier = [](std::vector<PointTrace>& p, float) { return static_cast<std::int32_t>(p.size()); };
    Biblio.LissageSequence = [](std::vector<PointTrace>&) {};
    Biblio.Texte = [](std::vector<PointTrace>& p, const std::string&, const std::string&, std::int32_t,
                      std::int32_t) {
      p.clear();
      return 0;
    };
    Biblio.EcrireFichier = [](const std::vector<PointTrace>&, const std::string&, std::string&) { return 0; };
  }

  std::vector<AppelDecal> appels;
  std::set<ovelin::Code2> echecs;
  int morceaux = 1;
};

// Codes of the trace table in order, one entry each: " A A B".
inline std::string CodesTraces() {
  std::string s;
  for (const auto& d : ovelin::TraceDecale) s += d.Seq.Texte();
  return s;
}
inline std::string CodesDessin() {
  std::string s;
  for (std::size_t i = 0; i < ovelin::TraceInitial.size(); ++i) {
    if (i == 0 || ovelin::TraceInitial[i].Seq != ovelin::TraceInitial[i - 1].Seq) {
      s += ovelin::TraceInitial[i].Seq.Texte();
    }
  }
  return s;
}
// X of all points of the drawing.
inline std::vector<float> AbscissesDessin() {
  std::vector<float> x;
  for (const auto& p : ovelin::TraceInitial) x.push_back(p.X);
  return x;
}
inline std::vector<std::pair<float, float>> Lieux(const std::vector<ovelin::PointTrace>& points) {
  std::vector<std::pair<float, float>> xy;
  for (const auto& p : points) xy.emplace_back(p.X, p.Y);
  return xy;
}
// "PD PE PC PD"
inline std::string Marques(const std::vector<ovelin::PointTrace>& points) {
  std::string s;
  for (const auto& p : points) s += (s.empty() ? "" : " ") + p.Cde.Texte();
  return s;
}

}  // namespace essai
