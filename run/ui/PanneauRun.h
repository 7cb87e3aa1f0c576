// The run in the milling window: how the job goes to the board, the button of three faces, the time that is left.
#pragma once

#include <QColor>
#include <QGroupBox>
#include <QTimer>
#include <array>
#include <optional>
#include <vector>

#include "run/Module_Decoupe.h"

class QLabel;
class QLineEdit;
class QProgressBar;
class QPushButton;
class QRadioButton;

namespace ovelin {

class PanneauRun : public QGroupBox {
  Q_OBJECT
 public:
  explicit PanneauRun(QWidget* parent = nullptr);

  // The face of the start button, whether it can be pressed, and whether the job can be given up.
  void MontreFace(FaceFraisage face, bool permise, bool abandon);
  // Option_Mode and Command1.
  void Permet(bool permis);
  void MontreEtat(const QString& texte);
  void MontreMode(int mode);
  void MontreCarte();  // which board is in use

  // The foreseen time, s; nothing hides it.
  void MontrePrevu(std::optional<double> secondes);
  void GriseTemps();                       // the time on show no longer holds
  void EcritTempsEn(const QColor& encre);  // its colour on the ground of the window; none: the system's
  void Debut(double total);
  void Avance(double reste, double ecoule);  // s
  void Memorise(bool ecrit);                 // the figure walks during the long write
  void CacheTemps();

  [[nodiscard]] std::vector<QWidget*> Controles() const;
  [[nodiscard]] QPushButton* Bouton() const { return Btn_Fraiser_Serie_; }

 Q_SIGNALS:
  void Lance();  // start or resume, as its face says
  void Arrete();
  void Abandonne();
  void Essaie();
  void Mode(int mode);

 private:
  void Construit();
  void Presse();
  void Relache();
  void Timer_Pic_Timer();
  void HabilleTemps();

  FaceFraisage face_ = FaceFraisage::Depart;
  bool arret_ = false;  // the press that is being let go was a stop
  int pas_ = 0;         // of the figure
  bool gris_ = false;   // the time
  QColor encre_;
  std::array<QRadioButton*, 3> Option_Mode_{};
  QLabel* Val_Carte_ = nullptr;
  QPushButton* Btn_Fraiser_Serie_ = nullptr;
  QPushButton* Btn_Abandon_ = nullptr;
  QPushButton* Command1_ = nullptr;
  QLineEdit* TB_TempsRestant_ = nullptr;
  QLabel* Lbl_TempsRestant_ = nullptr;
  QProgressBar* ProgressBar1_ = nullptr;
  QLabel* figure_ = nullptr;  // picStanding, or a picture of picWalking
  QLabel* Lbl_Etat_ = nullptr;
  QTimer Timer_Pic_;
};

}  // namespace ovelin
