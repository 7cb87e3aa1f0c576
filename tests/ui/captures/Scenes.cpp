#include "tests/ui/captures/Scenes.h"

#include <QTabBar>
#include <QTabWidget>

#include "core/DocumentCourant.h"
#include "core/Services.h"
#include "core/ui/F_ParamAppli.h"
#include "database/ui/F_BD.h"
#include "run/ui/F_Fraisage.h"
#include "tests/ui/support/SupportUi.h"
#include "workspace/ui/F_Dimension.h"
#include "workspace/ui/F_Nettoyage.h"
#include "workspace/ui/F_Representation.h"
#include "workspace/ui/F_Soudure.h"

namespace captures {

namespace {

template <class F>
std::unique_ptr<QWidget> Neuve() {
  return std::make_unique<F>();
}

std::unique_ptr<QWidget> Principale() {
  auto fenetre = std::make_unique<ovelin::F_Representation>();
  fenetre->Form_Load("");
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

std::function<void(QWidget&)> Onglet(int rang) {
  return [rang](QWidget& fenetre) { essai::Controle<QTabWidget>(fenetre, "SSTab1")->setCurrentIndex(rang); };
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

}  // namespace

std::vector<Scene> Scenes() {
  const QSize propre;
  std::vector<Scene> scenes = Principales();
  for (Scene& s : std::vector<Scene>{
           {"F_Dimension", "plaque.dxf", false, Neuve<ovelin::F_Dimension>, {}, {propre, {900, 700}}},
           {"F_Nettoyage", "plaque.dxf", false, Neuve<ovelin::F_Nettoyage>, {}, {propre}},
           {"F_Soudure", "plaque.dxf", false, Neuve<ovelin::F_Soudure>, {}, {propre}},
           {"F_BD", "", false, Neuve<ovelin::F_BD>, {}, {{700, 420}, propre, {1280, 720}}},
           {"F_Fraisage", "plaque.dxf", false, Neuve<ovelin::F_Fraisage>, {}, {propre, {900, 700}}},
           {"F_ParamAppli-options", "", false, Neuve<ovelin::F_ParamAppli>, Onglet(0), {propre}},
           {"F_ParamAppli-couleurs", "", false, Neuve<ovelin::F_ParamAppli>, Onglet(1), {propre}},
           {"F_ParamAppli-langue", "", false, Neuve<ovelin::F_ParamAppli>, Onglet(2), {propre}},
       }) {
    scenes.push_back(s);
  }
  return scenes;
}

}  // namespace captures
