// The milling window with a virtual board whose clock is the test's: waiting lets it go on, and what the user does
// meanwhile is done between two looks of the run.
#pragma once

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <functional>
#include <memory>

#include "closed/CarteVirtuelle.h"
#include "controller/ChoixCarte.h"
#include "controller/ClsCdeZENIK.h"
#include "core/Cles.h"
#include "core/DocumentCourant.h"
#include "core/PlanCourant.h"
#include "core/ReglagesCourants.h"
#include "core/RunCourant.h"
#include "core/ui/AvisRun.h"
#include "core/ui/ChampNombre.h"
#include "machine/Module_Table.h"
#include "run/Module_Decoupe.h"
#include "run/Module_Lancement.h"
#include "run/ui/F_Fraisage.h"
#include "tests/ui/support/SupportUi.h"
#include "toolpath/Module_Decalage.h"

namespace essai {

class RunEssai : public testing::Test {
 protected:
  RunEssai() {
    zenikcom::ConditionsCarte c;
    c.horloge = [this] { return static_cast<std::int64_t>(heure_ * 1e9); };
    c.attend = [this](std::int64_t ns) { heure_ += static_cast<double>(ns) * 1e-9; };
    carte_ = zenikcom::CreeCarteVirtuelle(std::move(c));
    ovelin::CdeZENIK = std::make_unique<ovelin::ClsCdeZENIK>(zenikcom::LiaisonVirtuelle(carte_));
    ovelin::Svc.Horloge = [this] { return heure_; };
    ovelin::Svc.Attend = [this](double s) { heure_ += s; };
    ovelin::Svc.LaisseEvenements = [this](ovelin::Evenements mode) {
      if (mode != ovelin::Evenements::Tous) return;
      heure_ += 0.0005;
      if (ovelin::RunActif && pendant_) pendant_();
    };
    ovelin::Svc.MontreRun = [](bool enCours) { ovelin::AvisRun::Unique().Note(enCours); };
    EcritFichierEssai(
        "OVELIN.ini",
        "[OVELIN]\r\nTableDefaut=Essai\r\n[table_Essai]\r\nTB_SAV_30=30\r\nTB_SAV_31=80\r\n"
        "TB_SAV_12=4\r\nTB_SAV_13=4\r\nTB_SAV_14=4\r\nTB_SAV_15=20\r\nTB_SAV_16=20\r\nTB_SAV_17=8\r\n");
    ovelin::OublieCles();
    ovelin::TableDefaut = "Essai";
    ovelin::Regl.Langue = "fr";
    ovelin::ChargeGlobalesTable();
    ovelin::CdeZENIK->ChargeParametres();
    ovelin::CdeZENIK->TableVerif();
    ovelin::RayonFraise = 1;
    ovelin::HautDeg = 3;
    ovelin::ProfPasse = -0.5;
    ovelin::ProfFraisage = -1;
    ovelin::Vitesse_Mat_H = 3;
    ovelin::Vitesse_Mat_V = 2;
    AjouteCarre(" A", 4, 4, 10, 1, -1);
    ovelin::RecalculDecalages();
  }
  ~RunEssai() override {
    ovelin::AvisRun::Unique().Note(false);
    ovelin::CdeZENIK = std::make_unique<ovelin::ClsCdeZENIK>();
  }

  // What the user does once, when that many records have begun.
  void Quand(std::int64_t records, std::function<void()> geste) {
    pendant_ = [this, records, geste = std::move(geste), fait = false]() mutable {
      if (fait || carte_->Compteurs().commences < records) return;
      fait = true;
      geste();
    };
  }

  double heure_ = 1000;  // s
  std::shared_ptr<zenikcom::CarteVirtuelle> carte_;
  std::function<void()> pendant_;
};

}  // namespace essai
