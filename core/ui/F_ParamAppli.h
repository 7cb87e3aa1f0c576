// The settings of the program: options, colours, language, board. Modal; what is changed holds at once.
#pragma once

#include <QDialog>
#include <array>

#include "core/Reglages.h"

class QCheckBox;
class QGridLayout;
class QLabel;
class QListWidget;
class QSlider;
class QTabWidget;

namespace ovelin {

class ChampNombre;
class Fleches;
class PageChoixCarte;

class F_ParamAppli : public QDialog {
  Q_OBJECT
 public:
  explicit F_ParamAppli(QWidget* proprietaire = nullptr);

 public Q_SLOTS:
  void accept() override;  // Btn_OK
  void reject() override;  // Btn_Annuler, Escape, the window's cross

 private:
  QWidget* PageOptions();
  QWidget* PageCouleurs();
  QWidget* PageLangue();
  void LigneCouleur(QGridLayout& grille, int i);
  void Relie();
  void MontreValeurs();
  void MontreCouleurs();
  void MontreIntervalle();
  void NommeCommandes();
  void RemplitLangues();
  void ChoisitLangue();
  void ChangeCouleur(int i);
  void ValeursDefaut();
  void QuitteMRU(bool change);
  void DitCouleurs();

  Reglages avant_;  // held at opening
  bool defaut_ = false;
  bool refus_ = false;  // the length of the recent list was refused when the field was left for a button
  QTabWidget* SSTab1_ = nullptr;
  QCheckBox* CB_Confirm_Suppr_ = nullptr;
  QSlider* HScroll_TimerInterval_ = nullptr;
  QLabel* LB_TimerInterval_ = nullptr;
  ChampNombre* TB_MRU_ = nullptr;
  Fleches* VScroll_MRU_ = nullptr;
  std::array<QLabel*, 6> LB_Couleur_{};
  QListWidget* LB_Langues_ = nullptr;
  PageChoixCarte* carte_ = nullptr;
};

}  // namespace ovelin
