// Page "Fraisage" of the panel: properties of the selection, and FRAME1_OUTIL with the tool parameters.
#pragma once

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QToolButton>
#include <QWidget>
#include <array>
#include <string>
#include <vector>

#include "toolpath/ChampsOutil.h"
#include "workspace/Module_Panneau.h"
#include "workspace/ui/CoupeEncoche.h"
#include "workspace/ui/Saisie.h"

namespace ovelin {

class PageFraisage : public QWidget {
  Q_OBJECT
 public:
  explicit PageFraisage(QWidget* parent = nullptr);

  void Remplit(const ChampsPanneau& champs);  // after InitSeq
  void RemplitOutil();                        // the tool fields from the values in force
  void SuitOutil();                           // fields whose value has changed elsewhere
  void VideOutil();                           // the tool fields stay blank
  void FocusLargeurEncoche();
  // A tool field has the keyboard and another text than the value in force.
  [[nodiscard]] bool EnSaisie() const;

 private:
  struct ChampOutil {
    Saisie* saisie = nullptr;
    const LigneOutil* ligne = nullptr;
  };
  QGroupBox* Selection();
  static void Image(QToolButton* bouton);
  QWidget* Cotes();
  void BullesCotes();
  QGroupBox* Outil();
  void AjouteChamp(QGridLayout* grille, const LigneOutil& ligne);
  void MontreFigures();
  void Entre(const ChampOutil& champ, const std::string& texte);
  void Profondeur(const std::string& texte);
  void MontreMelange(const ChampsPanneau& champs);
  void AvertitPoche(bool montre);

  std::int16_t decalCommun_ = 0;  // side of the whole selection; 0: they differ
  QGroupBox* selection_ = nullptr;
  QLabel* melange_ = nullptr;
  QLabel* cote_ = nullptr;
  QCheckBox* poche_ = nullptr;
  QCheckBox* fraiser_ = nullptr;
  QCheckBox* ilot_ = nullptr;
  Saisie* profondeur_ = nullptr;
  std::string profondeurEntiere_;  // the depth that the field shows rounded
  std::array<QToolButton*, 3> decal_{};
  std::vector<ChampOutil> outil_;
  QLabel* avisPoche_ = nullptr;
  CoupeEncoche* encoche_ = nullptr;
};

}  // namespace ovelin
