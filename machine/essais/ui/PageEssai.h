// The page of the tests: the speed test, and the way to the two other ones.
#pragma once

#include <QWidget>
#include <array>

#include "machine/essais/ReglageEssai.h"

class QCheckBox;
class QLabel;
class QPushButton;

namespace ovelin {

class ChampNombre;
class ControlesTable;

class PageEssai : public QWidget {
  Q_OBJECT
 public:
  explicit PageEssai(ControlesTable& controles, QWidget* parent = nullptr);

  void Montre(const ChampsEssai& champs);
  [[nodiscard]] ChampsEssai Lit() const;
  // The virtual board has a panel, others have none.
  void CarteVirtuelle(bool la);

 Q_SIGNALS:
  // A test begins, has ended.
  void EnCours(bool enCours);

 private:
  QWidget* GroupeEssai();
  void ActiveBouton();
  void Cmd_GO_Click();
  void MontreEnCours(bool enCours);

  ControlesTable& controles_;
  std::array<ChampNombre*, 4> TB_Param_{};
  std::array<QCheckBox*, 3> CB_Axe_{};
  QCheckBox* CB_SAV_14_ = nullptr;
  QPushButton* Cmd_GO_ = nullptr;
  QPushButton* Cmd_Stop_ = nullptr;
  QPushButton* Cmd_TestPasPerdus_ = nullptr;
  QPushButton* Cmd_Test_ = nullptr;
  QPushButton* Cmd_Carte_ = nullptr;
  QLabel* Label_Vitesse_ = nullptr;
  bool enCours_ = false;
};

}  // namespace ovelin
