// G-code: the judge, the measuring pass and the picture behind them.
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

#include "gcode/SceneProgramme.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace ovelin;
  const Programme programme(std::string(reinterpret_cast<const char*>(data), size));
  const ComptesProgramme& c = programme.Comptes();
  if (c.valides + c.commentaires + c.refusees != programme.NombreLignes()) std::abort();
  // What the judge keeps away goes to the interpreter too.
  EtatModal etat;
  class Sourd : public Recepteur {
    void Deplace(const MouvementLigne&) override {}
    void Machine(MotMachine) override {}
    void Pause(double secondes) override {
      if (!(secondes > 0)) std::abort();
    }
    void Broche(double) override {}
    void Rejete(const Mot& mot) override {
      if (mot.texte.empty()) std::abort();
    }
    void Arc(DefautArc) override {}
  } sourd;
  std::vector<Mot> mots;
  for (std::size_t i = 0; i < programme.NombreLignes(); ++i) {
    const bool valide = EstValide(JugeLigne(programme.Ligne(i), mots));
    if (valide != EstValide(programme.JugementDe(i))) std::abort();
    InterpreteMots(mots, etat, sourd);
  }
  const MesureProgramme mesure = MesureDe(programme, {}, true);
  if (!mesure.rejets.empty() || mesure.lignesEchouees > 0) std::abort();
  Scene scene;
  OptionsProgramme options;
  options.largeur = 320;
  options.hauteur = 200;
  for (const VueProgramme vue :
       {VueProgramme::Dessus, VueProgramme::Face, VueProgramme::Cote, VueProgramme::Espace}) {
    ConstruitSceneProgramme(mesure, ProjectionDe(vue, Camera{}, mesure.bornes, 320, 200), options, scene);
    for (const PointEcran& p : scene.Points) {
      if (!std::isfinite(p.X) || !std::isfinite(p.Y)) std::abort();
    }
  }
  return 0;
}
