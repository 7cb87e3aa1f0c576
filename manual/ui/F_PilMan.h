// Manual control: the machine is moved by keys of the keyboard, of its picture and of the board's keypad.
#pragma once

#include <QDialog>
#include <QTimer>
#include <array>
#include <functional>

#include "core/Services.h"
#include "manual/Module_Origine.h"
#include "manual/Module_PilMan.h"

class QGroupBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QStackedWidget;
class QToolButton;

namespace ovelin {

class ChampNombre;
class ImageClavier;
class VerrouEcran;

// One in the program, not modal. As long as it is there it hears what runs ask of manual control (`Svc.Pilotage`)
// and shows the place that is read in them (`Svc.MontrePosition`), also while it is hidden.
class F_PilMan : public QDialog {
  Q_OBJECT
 public:
  explicit F_PilMan(QWidget* parent = nullptr);
  ~F_PilMan() override;

  // Before each showing: what was kept in the settings; the poll of the board begins.
  void Form_Load();
  // The screen has been locked: a jog ends.
  void EcranVerrouille();
  [[nodiscard]] QSize sizeHint() const override;

 public Q_SLOTS:
  void done(int resultat) override;

 protected:
  bool eventFilter(QObject* objet, QEvent* e) override;
  void keyPressEvent(QKeyEvent* e) override;
  void keyReleaseEvent(QKeyEvent* e) override;
  void changeEvent(QEvent* e) override;
  void hideEvent(QHideEvent* e) override;

 private:
  void Construit();
  QWidget* ConstruitHaut();
  QWidget* ConstruitBas();
  QWidget* ConstruitPages();
  QGroupBox* ConstruitAide();
  QGroupBox* ConstruitValeurs();
  QGroupBox* ConstruitOrigine();
  QGroupBox* ConstruitRetour();
  QLayout* ConstruitVitesse();
  QLayout* ConstruitOrigines();
  void ConstruitTimers();
  void Relie();

  // Keys. True: taken.
  bool Touche(QObject& objet, const QKeyEvent& e);
  void Appuie(int code, Qt::KeyboardModifiers modificateurs);
  void Lache(int code);
  void AppuieImage(int code);
  void SuitEffet(EffetTouche effet);
  void PresseFleche(bool plus);
  void RepeteFleche();

  void Interroge();
  void Pilote(DemandePilotage demande);
  void Reduit(bool reduit);
  void Plie();
  void Deplie();
  void MontrePage(QWidget* page);
  void MontreVitesse();
  void MontrePosition(const VuePosition& vue);
  void MontreLieu(const std::array<std::string, 3>& lieu);
  void MontreBoutons();
  void MontreCarte();
  void PrendValeurs();
  void MontreValeurs();
  void Lbl_Stop_Press();
  void Lbl_Motor_Click();
  void Lbl_Broche_Click();
  void Lbl_Origine_Click();
  void Btn_OKR_Origine_Click(int index);
  void RendClavier();
  void PlaceFenetre();

  bool charge_ = false;
  bool bute_ = false;  // a switch is pressed
  bool tientMoteurs_ = false;
  bool versHaut_ = false;  // where the pointer jumps next
  int hauteur_ = 0;        // before the window was lowered; 0: it is not
  bool plie_ = false;      // lowered until the user's hand is in it
  bool enRun_ = false;     // lowered while somebody else drives
  std::function<void(double, double, double)> montreAvant_;
  std::function<void(DemandePilotage)> pilotageAvant_;

  QWidget* bas_ = nullptr;
  QStackedWidget* pages_ = nullptr;
  ImageClavier* clavier_ = nullptr;
  QGroupBox *Frame_Aide_ = nullptr, *Frame_Valeurs_ = nullptr, *FrameOrigine_ = nullptr, *FrameR_Origine_ = nullptr;
  std::array<QLabel*, 3> Lbl_Pos_{};
  QLabel *Lbl_Carte_ = nullptr, *Lbl_Vitesse_ = nullptr, *SB_ = nullptr, *Lbl_Place_ = nullptr;
  QPushButton *Lbl_Stop_ = nullptr, *Lbl_Motor_ = nullptr, *Lbl_Broche_ = nullptr, *Btn_Place_ = nullptr;
  QPushButton *Lbl_RAZ_ = nullptr, *Lbl_Origine_ = nullptr, *Lbl_Palpeur_ = nullptr;
  QPushButton *Btn_OKValeurs_ = nullptr, *Btn_OKOrigine_ = nullptr;
  std::array<QPushButton*, 2> Btn_OKR_Origine_{};
  std::array<QToolButton*, 2> Img_Fleche_{};
  std::array<ChampNombre*, 3> TB_Valeur_{};
  QLineEdit* TB_Vitesse_Manuel_ = nullptr;
  QListWidget *List_Origine_ = nullptr, *List_R_Origine_ = nullptr;
  QTimer TimerPosition_, TimerFleche_, TimerFlash_, TimerCarre_, TimerMotorOn_, TimerLiaison_;
  VerrouEcran* verrou_ = nullptr;
};

}  // namespace ovelin
