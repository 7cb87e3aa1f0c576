#include "tests/ui/captures/Scenes.h"

#include <QTabBar>
#include <QToolButton>

#include "app/ovelin/Composition.h"
#include "core/DocumentCourant.h"
#include "core/Dossiers.h"
#include "core/Fichiers.h"
#include "core/Services.h"
#include "gcode/ui/F_Gcode.h"
#include "run/Module_GCode.h"
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

// The workshop with the drawing's own job, looked at that way, and a line in it that it refuses.
std::function<void(QWidget&)> Programme(int vue) {
  return [vue](QWidget& fenetre) {
    const std::string chemin = ovelin::DossierTemp + "/programme.nc";
    ovelin::EcritureNC ecriture;
    if (!ovelin::EcritGCode(chemin, ecriture)) return;
    ovelin::EcritFichierEntier(chemin, ovelin::LitFichierEntier(chemin).value_or("") + "G02 X10 Y10 I5\r\n");
    static_cast<ovelin::F_Gcode&>(fenetre).Ouvre(chemin);
    essai::Clique(*essai::Controle<QToolButton>(fenetre, ("Option_Vue_" + std::to_string(vue)).c_str()));
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
  const ovelin::LigneFenetre* atelier = ovelin::ChercheFenetre(ovelin::TableFenetres(), "F_Gcode");
  const auto construit = [atelier] { return ovelin::FaitFenetre(*atelier, nullptr); };
  scenes.push_back({"F_Gcode-programme", "plaque-poches.OVL", false, construit, Programme(0), {{}, {700, 480}}});
  scenes.push_back({"F_Gcode-espace", "equerre-attaches.OVL", false, construit, Programme(3), {{}}});
  return scenes;
}

}  // namespace captures
