// The milling window: speeds, what the plan comes to, the G-code file.
#pragma once

#include <QDialog>
#include <array>

#include "core/ui/ChampNombre.h"
#include "run/Module_Fraisage.h"

class QLabel;
class QLayout;
class QProgressBar;
class QPushButton;
class QStackedWidget;
class QTimer;
class QToolButton;

namespace ovelin {

class PanneauPlan;

class F_Fraisage : public QDialog {
  Q_OBJECT
 public:
  explicit F_Fraisage(QWidget* parent = nullptr);

  // The writing has begun and not ended: closing is put off until then.
  [[nodiscard]] bool Ecrit() const { return ecrit_; }

 public Q_SLOTS:
  void done(int resultat) override;
  // Length, time and bar as far as the writing has come.
  void MontreAvancement();

 private:
  void Construit();
  QLayout* ConstruitVitesses();
  QLayout* ConstruitFichier();
  void RetablitPlace();

  void VitesseQuitte(ChampNombre& champ, bool change);
  void Pas(int index);
  void Planifie();
  void MontreTotaux(double longueur, double temps);
  void Btn_Gener_GCODE_Click();
  void Libre(bool libre);

  ResumePlan resume_;
  EcritureNC ecriture_;
  bool ecrit_ = false;
  ChampNombre* TB_Vit_Mat_H_ = nullptr;
  ChampNombre* TB_Vit_Mat_V_ = nullptr;
  std::array<QToolButton*, 4> CB_VitMat_{};
  PanneauPlan* plan_ = nullptr;
  QLineEdit* TB_LongueurParcours_NC_ = nullptr;
  QLineEdit* TB_TempsFraisage_NC_ = nullptr;
  QLabel* Lbl_Duree_ = nullptr;
  QStackedWidget* bas_ = nullptr;
  QProgressBar* ProgressBar_NC_ = nullptr;
  QLabel* Lbl_Resultat_ = nullptr;
  QPushButton* Btn_Gener_GCODE_ = nullptr;
  QPushButton* Btn_Fermer_ = nullptr;
  QTimer* suivi_ = nullptr;
};

}  // namespace ovelin
