// What the plan comes to, in figures, with a word of warning where one is due.
#pragma once

#include <QGroupBox>
#include <array>

#include "run/Module_Fraisage.h"

class QGridLayout;
class QLabel;

namespace ovelin {

class PanneauPlan : public QGroupBox {
  Q_OBJECT
 public:
  explicit PanneauPlan(QWidget* parent = nullptr);

  void Montre(const ResumePlan& resume);

 private:
  QLabel* Figure(QGridLayout& grille, int ligne, int colonne, const char* nom, const char* titre,
                 const char* bulle);
  [[nodiscard]] QString Avis(const ResumePlan& resume) const;

  QLabel* sequences_ = nullptr;
  QLabel* passes_ = nullptr;
  QLabel* lignes_ = nullptr;
  QLabel* fond_ = nullptr;
  QLabel* rayon_ = nullptr;
  QLabel* sansRampe_ = nullptr;
  QLabel* maxi_ = nullptr;
  QLabel* etendueX_ = nullptr;
  QLabel* etendueY_ = nullptr;
  QLabel* avis_ = nullptr;
};

}  // namespace ovelin
