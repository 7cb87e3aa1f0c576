// The offset by engines that npm has, in WebAssembly: Clipper2 and CavalierContours, where node and they are
// installed (dev/install-packages all). What brings the points into their memory and back isn't counted.
#pragma once

#include <unistd.h>

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string>
#include <vector>

#include "closed/pathwerk/commun/Lieux.h"

namespace banc {

class DeNode {
 public:
  struct Resultat {
    double secondes = 0;
    std::vector<pathwerk::Segment> segments;  // of the offsets, mm
  };

  // `moteur`: "clipper2" or "cavalier".
  explicit DeNode(const std::string& moteur) : moteur_(moteur) {
    const char* voulu = std::getenv("OVELIN_NODE_MODULES");
    const char* maison = std::getenv("HOME");
    modules_ = voulu != nullptr ? voulu
                                : std::string(maison != nullptr ? maison : "") + "/.cache/ovelin/node/node_modules";
  }
  [[nodiscard]] bool Present() const {
    const std::string paquet = moteur_ == "clipper2" ? "clipper2-wasm" : "cavalier_contours_wasm";
    return std::filesystem::exists(modules_ + "/" + paquet) && std::system("node --version > /dev/null 2>&1") == 0;
  }
  // All outlines, one after the other; a closed one doesn't repeat its first point. `fleche`: greatest error of the
  // chords of arcs, mm. None: it failed, or took more processor time than this process may.
  [[nodiscard]] std::optional<Resultat> Decale(const std::vector<pathwerk::Chemin>& contours, bool ferme, double d,
                                               double fleche) const {
    const std::string debut =
        (std::filesystem::temp_directory_path() / ("bench_offset-" + std::to_string(getpid()))).string();
    const std::string entree = debut + ".in", sortie = debut + ".out", temps = debut + ".s";
    Ecrit(contours, ferme, entree);
    const std::string commande = "NODE_PATH='" + modules_ + "' node '" BANC_DOSSIER "/moteurs.mjs' " + moteur_ +
                                 " '" + entree + "' " + std::to_string(d) + " " + std::to_string(fleche) + " '" +
                                 sortie + "' > '" + temps + "' 2> /dev/null";
    std::optional<Resultat> r;
    if (std::system(commande.c_str()) == 0) r = Lit(temps, sortie);
    for (const std::string& f : {entree, sortie, temps}) std::filesystem::remove(f);
    return r;
  }

 private:
  template <class T>
  static void Met(std::ofstream& f, T v) {
    f.write(reinterpret_cast<const char*>(&v), sizeof v);
  }
  static void Ecrit(const std::vector<pathwerk::Chemin>& contours, bool ferme, const std::string& nom) {
    std::ofstream f(nom, std::ios::binary);
    Met(f, static_cast<std::uint32_t>(contours.size()));
    for (const pathwerk::Chemin& c : contours) {
      Met(f, static_cast<std::uint32_t>(c.size()));
      Met(f, static_cast<std::uint32_t>(ferme));
    }
    for (const pathwerk::Chemin& c : contours) {
      for (const pathwerk::Vec2 p : c) {
        Met(f, p.x);
        Met(f, p.y);
      }
    }
  }
  static std::optional<Resultat> Lit(const std::string& temps, const std::string& segments) {
    Resultat r;
    if (!(std::ifstream(temps) >> r.secondes)) return std::nullopt;
    std::ifstream f(segments, std::ios::binary);
    double s[4];
    while (f.read(reinterpret_cast<char*>(s), sizeof s)) r.segments.push_back({{s[0], s[1]}, {s[2], s[3]}});
    return r;
  }

  std::string moteur_;
  std::string modules_;
};

}  // namespace banc
