#include "tests/ui/captures/Scenes.h"

#include <QTabBar>

#include "app/ovelin/Composition.h"
#include "core/DocumentCourant.h"
#include "core/Services.h"
#include "tests/ui/support/SupportUi.h"
#include "workspace/ui/F_Representation.h"

namespace captures {

namespace {

std::unique_ptr<QWidget> Principale() {
  auto fenetre = std::make_unique<ovelin::F_Representation>();
  fenetre->Form_Load("");
  essai::Controle<QTimer>(*fenetre, "Timer_Cadre")->stop();  // the picture has the size that it was asked for
  return fenetre;
}

// One path in focus and that page of the side panel.
std::function<void(QWidget&)> Page(int page, std::size_t choisies) {
  return [page, choisies](QWidget& fenetre) {
    for (std::size_t i = 0; i < ovelin::Sequences.size(); ++i) {
      ovelin::Sequences[i].Selection = i < choisies ? ovelin::Vrai : ovelin::Faux;
    }
    essai::Controle<QTabBar>(fenetre, "Option1")->setCurrentIndex(page);
    ovelin::Svc.Rafraichit();
  };
}

std::vector<Scene> Principales() {
  const QSize petite(1024, 700), moyenne(1280, 800), grande(1600, 1000);
  return {
      {"F_Representation-vide", "", true, Principale, {}, {moyenne}},
      {"F_Representation-plaque-points", "plaque.dxf", true, Principale, Page(0, 1), {petite, moyenne}},
      {"F_Representation-plaque-fraisage", "plaque.dxf", true, Principale, Page(1, 1), {petite, moyenne, grande}},
      {"F_Representation-plaque-sequences", "plaque.dxf", true, Principale, Page(2, 2), {petite, moyenne}},
      {"F_Representation-enseigne", "enseigne.plt", true, Principale, Page(1, 0), {moyenne, grande}},
      {"F_Representation-poches", "plaque-poches.OVL", true, Principale, Page(2, 2), {moyenne}},
      {"F_Representation-attaches", "equerre-attaches.OVL", true, Principale, Page(1, 1), {moyenne}},
  };
}

// Sizes of a window that shows more of itself in others than its own and a large one; an invalid one is its own.
std::vector<QSize> TaillesDe(const std::string& nom) {
  const QSize propre;
  if (nom == "F_BD") return {{700, 420}, propre, {1280, 720}};
  return {propre, {900, 700}};
}

}  // namespace

std::vector<Scene> Scenes() {
  std::vector<Scene> scenes = Principales();
  for (const ovelin::LigneFenetre& ligne : ovelin::TableFenetres()) {
    const auto construit = [&ligne] { return ovelin::FaitFenetre(ligne, nullptr); };
    scenes.push_back({ligne.nom, "plaque.dxf", false, construit, {}, TaillesDe(ligne.nom)});
  }
  return scenes;
}

}  // namespace captures
