// The panel of the virtual board: what a user does with his hands and sees with his eyes on a real one. Free,
// beside the windows that move the machine.
#pragma once

#include <QDialog>
#include <array>
#include <vector>

#include "controller/OperateurCarte.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QPushButton;
class QSlider;
class QTabWidget;
class QTimer;

namespace ovelin {

class ChampNombre;
class ImageParcours;

class F_CarteVirtuelle : public QDialog {
  Q_OBJECT
 public:
  explicit F_CarteVirtuelle(QWidget* parent = nullptr);

  // The board of the program as it is now; from then on the panel follows it by itself.
  void Form_Load();

 public Q_SLOTS:
  void done(int resultat) override;

 private:
  QWidget* PagePlace();
  QWidget* PageCommandes();
  QWidget* GroupeClavier();
  QWidget* GroupeInterrupteurs();
  QWidget* GroupeSorties();
  QWidget* GroupeEcran();
  QWidget* PageModele();
  QWidget* GroupeModele();
  QWidget* GroupeFautes();

  void Suit();
  void MontreSorties(const VueCarte& vue);
  void MontreParcours(const VueCarte& vue);
  void Appuie();
  void RelacheTout();
  void PoseEntrees();
  void Exporte();
  void PoseModele();
  void MontreModele();
  void AjouteFaute();
  void MontreFautes();

  QTabWidget* SSTab1_ = nullptr;
  QLabel* Lbl_Absente_ = nullptr;
  QTimer* suivi_ = nullptr;
  // Place: counters, true place, lost steps, an axis each.
  std::array<std::array<QLabel*, 3>, 3> places_{};
  QLabel* Lbl_Etat_ = nullptr;
  ImageParcours* PB_Parcours_ = nullptr;
  // Controls
  std::array<QPushButton*, 6> Btn_Touche_{};
  QCheckBox* CB_FinDeCourse_ = nullptr;
  QCheckBox* CB_Origine_ = nullptr;
  QCheckBox* CB_Debranche_ = nullptr;
  std::array<QSlider*, 2> Sld_Analog_{};
  std::array<QLabel*, 4> sorties_{};
  std::array<QLabel*, 2> Lbl_Ecran_{};
  // Model and faults
  std::array<std::array<ChampNombre*, 3>, 3> modele_{};  // by axis: free speed, ramp, play
  QComboBox* Combo_Faute_ = nullptr;
  ChampNombre* TB_Apres_ = nullptr;
  ChampNombre* TB_Duree_ = nullptr;
  QLabel* Lbl_Fautes_ = nullptr;

  std::vector<zenikcom::Faute> fautes_;  // as they were planned here
  std::int64_t commences_ = -1;          // moves when the path was drawn last
  zenikcom::Axes3 lieu_{};
};

}  // namespace ovelin
