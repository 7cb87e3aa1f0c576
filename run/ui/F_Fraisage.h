// The milling window: tool, speeds, what the plan comes to, the run on the machine, the G-code file. It stays open
// beside the others; what it has begun goes on when it is closed.
#pragma once

#include <QDialog>
#include <QTimer>
#include <array>
#include <functional>
#include <optional>

#include "core/ui/ChampNombre.h"
#include "run/Module_Fraisage.h"

class QHBoxLayout;
class QLabel;
class QLayout;
class QPushButton;
class QToolButton;

namespace ovelin {

class PanneauNC;
class PanneauOutil;
class PanneauPlan;
class PanneauRun;

class F_Fraisage : public QDialog {
  Q_OBJECT
 public:
  explicit F_Fraisage(QWidget* parent = nullptr);
  ~F_Fraisage() override;

  // Before each showing: the state of the run, and the plan where the drawing is another one.
  void Form_Load();
  // The writing has begun and not ended: closing is put off until then.
  [[nodiscard]] bool Ecrit() const;

  bool eventFilter(QObject* objet, QEvent* e) override;

 public Q_SLOTS:
  void done(int resultat) override;
  // Length, time and bar as far as the writing has come.
  void MontreAvancement();
  // Timer_MotorOff: the job has ended a while ago.
  void Timer_MotorOff_Timer();

 protected:
  void changeEvent(QEvent* e) override;

 private:
  enum class Fond { Systeme, Rouge, Vert };

  void Construit();
  QLayout* ConstruitVitesses();
  void Ordonne();
  void RetablitPlace();

  // The plan
  void VitesseQuitte(ChampNombre& champ, bool change);
  void Pas(int index);
  void Planifie(bool prevoit);
  void Mende(const Remede& remede);
  void Suit();

  // The run
  void Btn_Fraiser_Serie_Click();
  void Btn_Abandon_Click();
  void Execute(const std::function<bool()>& quoi);
  void PoseVue();
  void MontreRun();
  [[nodiscard]] QString TexteEtat() const;
  void Colore(Fond fond);
  void AttendCarte_Timer();

  std::optional<std::uint64_t> empreinte_;  // of the plan on show
  std::string vitesse_;                     // TB_Vit_Mat_H as the start took it
  bool fraise_ = false;                     // a run of this window goes on
  bool ecrit_ = false;                      // its job is being written to the board's memory
  bool touche_ = false;                     // a key has stopped it
  bool termine_ = false;                    // the last one has come to its end
  Fond fond_ = Fond::Systeme;
  ChampNombre* TB_Vit_Mat_H_ = nullptr;
  ChampNombre* TB_Vit_Mat_V_ = nullptr;
  std::array<QToolButton*, 4> CB_VitMat_{};
  QLabel* Lbl_Virtuelle_ = nullptr;
  PanneauOutil* outil_ = nullptr;
  PanneauPlan* plan_ = nullptr;
  PanneauRun* run_ = nullptr;
  PanneauNC* nc_ = nullptr;
  QPushButton* Btn_Fermer_ = nullptr;
  QTimer Timer_MotorOff_, Timer_Carte_;
};

}  // namespace ovelin
