// What the plan comes to, in figures, with a word of warning where one is due.
#pragma once

#include <QGroupBox>
#include <vector>

#include "run/Module_Fraisage.h"

class QGridLayout;
class QLabel;
class QPushButton;
class QVBoxLayout;

namespace ovelin {

class PanneauPlan : public QGroupBox {
  Q_OBJECT
 public:
  explicit PanneauPlan(QWidget* parent = nullptr);

  void Montre(const ResumePlan& resume);
  // While the machine works nothing is mended.
  void Permet(bool permis);

 Q_SIGNALS:
  // The button beside a warning.
  void Mende(const ovelin::Remede& remede);

 private:
  QLabel* Figure(QGridLayout& grille, int ligne, int colonne, const char* nom, const char* titre,
                 const char* bulle);
  // A warning, with what mends it where something does.
  struct Avis {
    QString texte;
    Remede remede;
  };
  struct Rangee {
    QLabel* texte = nullptr;
    QPushButton* bouton = nullptr;
    Remede remede;
  };
  [[nodiscard]] static std::vector<Avis> TousAvis(const ResumePlan& resume);
  void AjouteRangee();
  void MontreAvis(const std::vector<Avis>& avis);

  QLabel* sequences_ = nullptr;
  QLabel* passes_ = nullptr;
  QLabel* lignes_ = nullptr;
  QLabel* fond_ = nullptr;
  QLabel* rayon_ = nullptr;
  QLabel* sansRampe_ = nullptr;
  QLabel* maxi_ = nullptr;
  QLabel* etendueX_ = nullptr;
  QLabel* etendueY_ = nullptr;
  QVBoxLayout* avis_ = nullptr;
  std::vector<Rangee> rangees_;  // the first ones are in use
};

}  // namespace ovelin
