// Services of the windows in force, and a hand that answers the dialog that comes up next.
#pragma once

#include <QApplication>
#include <QTimer>
#include <functional>

#include "core/ui/Fenetres.h"
#include "core/ui/ServicesQt.h"
#include "tests/ui/support/SupportUi.h"

namespace essai {

class BancServices : public testing::Test {
 protected:
  void SetUp() override { ovelin::InstalleServicesQt(); }
  void TearDown() override {
    ovelin::ChoisitProprietaire(nullptr);
    ovelin::ChoisitCouleur = nullptr;
    Evenements();
  }

  // What happens to the dialog that comes up next.
  template <class D>
  void Quand(const std::function<void(D&)>& geste) {
    QTimer::singleShot(0, [geste] {
      auto* dialogue = qobject_cast<D*>(QApplication::activeModalWidget());
      ASSERT_NE(dialogue, nullptr);
      geste(*dialogue);
    });
  }
};

inline ovelin::BoiteMessage UneBoite(ovelin::Boutons boutons, ovelin::Icone icone = ovelin::Icone::Information) {
  ovelin::BoiteMessage b;
  b.section = "F_Essai";
  b.cle = "lib001";
  b.texte = "Save <b>it</b>?";
  b.titre = "Title";
  b.icone = icone;
  b.boutons = boutons;
  return b;
}

}  // namespace essai
