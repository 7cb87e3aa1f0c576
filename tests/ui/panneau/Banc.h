// The pages of the panel in a window that does for them what the main window does.
#pragma once

#include <QBoxLayout>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "core/DocumentCourant.h"
#include "core/Services.h"
#include "core/ui/TraduitFenetre.h"
#include "tests/ui/support/SupportUi.h"
#include "toolpath/Module_Decalage.h"
#include "workspace/ui/PageFraisage.h"
#include "workspace/ui/PagePoints.h"
#include "workspace/ui/PageSequences.h"

namespace essai {

// The window of one page. Each refresh fills the page from the document.
template <class Page>
class Banc : public testing::Test {
 protected:
  void SetUp() override {
    fenetre_ = std::make_unique<QWidget>();
    fenetre_->setObjectName(QStringLiteral("F_Representation"));
    auto* colonne = new QVBoxLayout(fenetre_.get());
    colonne->setContentsMargins(0, 0, 0, 0);
    page_ = new Page;
    colonne->addWidget(page_);
    ovelin::Svc.Rafraichit = [this] {
      ++rafraichis_;
      Remplit();
    };
  }
  void TearDown() override { fenetre_.reset(); }

  // Two closed squares, 10 x 10 at (0, 0) and 30 x 30 at (20, 5), the second one selected; tool paths made.
  void DeuxCarres() {
    AjouteCarre(" A", 0, 0, 10);
    AjouteCarre(" B", 20, 5, 30);
    ovelin::Sequences[0].Selection = ovelin::Faux;
    ovelin::RecalculDecalages();
  }
  void Ouvre(int largeur = 340, int hauteur = 440) {
    ovelin::TraduireFenetre(*fenetre_);
    Remplit();
    Montre(*fenetre_, largeur, hauteur);
  }
  void Remplit() { page_->Remplit(ovelin::InitSeq()); }

  template <class T = QWidget>
  T* C(const char* nom) {
    return Controle<T>(*fenetre_, nom);
  }
  std::string Texte(const char* nom) { return C<QLineEdit>(nom)->text().toStdString(); }
  bool Coche(const char* nom) { return C<QAbstractButton>(nom)->isChecked(); }
  bool Actif(const char* nom) { return C(nom)->isEnabled(); }
  bool Refuse(const char* nom) { return C<ovelin::ChampNombre>(nom)->EstRefuse(); }

  std::unique_ptr<QWidget> fenetre_;
  Page* page_ = nullptr;
  int rafraichis_ = 0;
};

}  // namespace essai
