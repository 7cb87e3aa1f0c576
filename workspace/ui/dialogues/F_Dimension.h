// The size of a newly read drawing: ratios of width and height, with a preview.
#pragma once

#include <QCheckBox>
#include <QDialog>
#include <QStatusBar>
#include <array>

#include "core/Services.h"
#include "core/ui/ChampNombre.h"
#include "workspace/Module_Dimension.h"

class QGridLayout;

namespace ovelin {

class ApercuDimension;

class F_Dimension : public QDialog {
  Q_OBJECT
 public:
  // For the drawing in memory.
  explicit F_Dimension(QWidget* parent = nullptr);
  explicit F_Dimension(const DemandeDimension& demande, QWidget* parent = nullptr);

  // The sizes asked for, with the ratios of the answer: 1 unless the window was closed by its OK.
  [[nodiscard]] DemandeDimension Reponse() const;

 private:
  struct Axe {
    ChampNombre* initial = nullptr;
    ChampNombre* rapport = nullptr;
    ChampNombre* resultat = nullptr;
  };

  void Construit();
  void ConstruitAxe(QGridLayout& grille, std::size_t axe);
  void ConstruitBarre();
  void Branche(std::size_t axe);
  void MontreChamps();
  void Previent(std::size_t axe, bool rapport);
  void Quitte(ChampNombre& champ, std::size_t axe, bool rapport, bool change);
  bool Applique();   // the fields into the answer; false when refused
  bool LitChamps();  // every field holds a number; otherwise it says which doesn't

  DemandeDimension demande_;
  ChampsDimension champs_;
  std::array<Axe, 2> axes_;
  QCheckBox* CB_Proportions_ = nullptr;
  ApercuDimension* PB1_ = nullptr;
  QStatusBar* SB1_ = nullptr;
};

}  // namespace ovelin
