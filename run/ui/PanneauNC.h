// The G-code file in the milling window: totals, the button that writes it, how far that has come.
#pragma once

#include <QGroupBox>
#include <functional>
#include <utility>
#include <vector>

#include "run/Module_Dialecte.h"
#include "run/Module_Fraisage.h"

class QComboBox;
class QLabel;
class QLayout;
class QLineEdit;
class QProgressBar;
class QPushButton;
class QStackedWidget;
class QTimer;

namespace ovelin {

class ChampNombre;

class PanneauNC : public QGroupBox {
  Q_OBJECT
 public:
  explicit PanneauNC(QWidget* parent = nullptr);

  // The dialects that there are now, and the one in force.
  void MontreDialectes();
  // Totals of the plan; what an earlier writing has left goes.
  void MontrePlan(const FiguresPlan& figures);
  // The texts of both speeds as they stand in their fields.
  std::function<std::pair<std::string, std::string>()> Vitesses;
  // The writing has begun and not ended.
  [[nodiscard]] bool Ecrit() const { return ecrit_; }
  // Length, time and bar as far as the writing has come.
  void MontreAvancement();
  [[nodiscard]] std::vector<QWidget*> Controles() const;
  [[nodiscard]] QPushButton* Bouton() const { return Btn_Gener_GCODE_; }

 Q_SIGNALS:
  void EcritureChange();

 private:
  void MontreTotaux(double longueur, double temps);
  void Btn_Gener_GCODE_Click();
  void Commence(bool ecrit);
  QLayout* ConstruitDialecte();
  void Combo_Dialecte_Click(int rang);
  void MontreDialecte(const Dialecte* dialecte);

  FiguresPlan figures_;
  EcritureNC ecriture_;
  bool ecrit_ = false;
  std::vector<DialecteOffert> offerts_;  // as the list shows them
  QComboBox* Combo_Dialecte_ = nullptr;
  QLabel* Lbl_VitesseBroche_ = nullptr;
  QLabel* Lbl_AttenteBroche_ = nullptr;
  ChampNombre* TB_VitesseBroche_ = nullptr;
  ChampNombre* TB_AttenteBroche_ = nullptr;
  QLabel* Lbl_ArcsAtelier_ = nullptr;
  QLabel* Lbl_DialecteRefuse_ = nullptr;
  QLineEdit* TB_LongueurParcours_NC_ = nullptr;
  QLineEdit* TB_TempsFraisage_NC_ = nullptr;
  QLabel* Lbl_Duree_ = nullptr;
  QStackedWidget* bas_ = nullptr;
  QProgressBar* ProgressBar_NC_ = nullptr;
  QLabel* Lbl_Resultat_ = nullptr;
  QPushButton* Btn_Gener_GCODE_ = nullptr;
  QTimer* suivi_ = nullptr;
};

}  // namespace ovelin
