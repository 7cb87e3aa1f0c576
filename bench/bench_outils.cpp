// The windows of lettering, drag knife, export and about: how long each takes to stand, painted, over a drawing of
// a million points; an export of these points in both formats; the list of a thousand families of fonts. Real time.
//   build/bench/bin/bench_outils
#include <QApplication>
#include <QDialog>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>
#include <vector>

#include "bench/Formes.h"
#include "bench/SansEcran.h"
#include "closed/Pathwerk.h"
#include "core/DocumentCourant.h"
#include "core/Dossiers.h"
#include "core/Services.h"
#include "core/ui/F_About.h"
#include "core/ui/ServicesQt.h"
#include "toolpath/Module_Outils.h"
#include "toolpath/ui/F_Exporter.h"
#include "toolpath/ui/F_Texte.h"
#include "toolpath/ui/F_Vinyl.h"

namespace {

using namespace ovelin;
namespace fs = std::filesystem;

constexpr int Tours = 7;

double Maintenant() {  // ms
  return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

template <class F>
void Mesure(const char* quoi, int tours, const F& fait) {
  std::vector<double> durees;
  for (int i = 0; i < tours; ++i) {
    const double debut = Maintenant();
    fait();
    durees.push_back(Maintenant() - debut);
  }
  const double premiere = durees.front();
  std::sort(durees.begin(), durees.end());
  std::printf("%-34s first %7.1f ms  median %7.1f ms  worst %7.1f ms\n", quoi, premiere, durees[durees.size() / 2],
              durees.back());
}

// From the command to a painted window whose events are done, the list of fonts among them.
template <class Fenetre>
void Ouvre(const char* nom) {
  Mesure(nom, Tours, [] {
    Fenetre fenetre;
    fenetre.show();
    QApplication::processEvents();
    fenetre.repaint();
    QApplication::processEvents();
  });
}

void Million() {
  Doc = Document{};
  Sequences.clear();
  for (const auto& contour : banc::Contours(1000, 1000)) {
    TraceInitial.insert(TraceInitial.end(), contour.begin(), contour.end());
    Sequences.push_back({contour[0].Seq, Faux, -3, Vrai, 1, Faux});
    TraceDecale.push_back({contour[0].Seq, contour});
  }
  NbPoints = static_cast<std::int32_t>(TraceInitial.size());
}

// The families are one font under other names of the same length, so that no table of it moves.
bool Familles(const fs::path& dossier, const char* modele, int nombre) {
  std::ifstream f(modele, std::ios::binary);
  const std::string octets(std::istreambuf_iterator<char>(f), {});
  if (octets.empty()) return false;
  const std::string nom = "DejaVu Sans Mono";
  const auto large = [](const std::string& texte) {  // UTF-16, as fonts keep it
    std::string t;
    for (const char c : texte) t += std::string(1, '\0') + c;
    return t;
  };
  for (int i = 0; i < nombre; ++i) {
    char numero[32];
    std::snprintf(numero, sizeof numero, "Famille %08d", i);
    std::string copie = octets;
    for (const auto& [de, en] : {std::pair(nom, std::string(numero)), std::pair(large(nom), large(numero))}) {
      for (std::size_t k = copie.find(de); k != std::string::npos; k = copie.find(de, k))
        copie.replace(k, de.size(), en);
    }
    std::ofstream(dossier / (std::to_string(i) + ".ttf"), std::ios::binary) << copie;
  }
  return true;
}

void Polices(const fs::path& travail) {
  constexpr int Nombre = 1000;
  const fs::path dossier = travail / "polices";
  fs::create_directories(dossier);
  if (!Familles(dossier, "/usr/share/fonts/truetype/dejavu/DejaVuSansMono-Oblique.ttf", Nombre)) {
    std::printf("no font to make families of (fonts-dejavu-extra)\n");
    return;
  }
  const fs::path reglages = travail / "fonts.conf";
  std::ofstream(reglages) << "<?xml version=\"1.0\"?><!DOCTYPE fontconfig SYSTEM \"fonts.dtd\"><fontconfig><dir>"
                          << dossier.string() << "</dir><cachedir>" << (travail / "cache").string()
                          << "</cachedir></fontconfig>";
  setenv("FONTCONFIG_FILE", reglages.c_str(), 1);
  std::size_t familles = 0;
  // The first time fontconfig reads each file and keeps what it found, as it does when fonts are installed.
  Mesure("1,000 families listed", Tours, [&] { familles = pathwerk::ListePolices().size(); });
  std::printf("%34zu families\n", familles);
}

}  // namespace

int main(int argc, char** argv) {
  const QApplication application = banc::SansEcran(argc, argv);
  InstalleServicesQt();
  Svc.Montre = [](const BoiteMessage&) { return Reponse::Ok; };
  const fs::path travail = fs::temp_directory_path() / ("ovelin-bench-outils-" + std::to_string(getpid()));
  fs::create_directories(travail);
  DossierProgramme = travail.string();
  Million();
  Ouvre<F_Texte>("F_Texte");
  Ouvre<F_Vinyl>("F_Vinyl");
  Ouvre<F_Exporter>("F_Exporter");
  Ouvre<F_About>("F_About");
  for (const char* nom : {"million.dxf", "un.dat"}) {
    if (std::string(nom).ends_with(".dat")) {  // one path a file
      TraceDecale.resize(1);
    }
    Mesure((std::string("export 1,000,000 points, ") + nom).c_str(), 3,
           [&] { Exporte((travail / nom).string(), 0); });
  }
  Polices(travail);
  fs::remove_all(travail);
  return 0;
}
