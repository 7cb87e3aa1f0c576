// Page "Séquences" of the panel: selection, order, move, turn and mirror, sizes, placing.
#pragma once

#include <QWidget>
#include <array>
#include <vector>

#include "core/Gestes.h"
#include "workspace/Module_Arbres.h"
#include "workspace/Module_Panneau.h"
#include "workspace/ui/CadreDeplacement.h"
#include "workspace/ui/CadreDimensions.h"

namespace ovelin {

class PageSequences : public QWidget {
  Q_OBJECT
 public:
  explicit PageSequences(QWidget* parent = nullptr);

  void Remplit(const ChampsPanneau& champs);      // after InitSeq
  void MontrePoint(const ResultatClic& clic);     // TB_X and TB_Y show a clicked point
  void Deplace(Direction direction, double pas);  // a move of the selection in mm; TB_X and TB_Y follow

 private:
  QWidget* Commandes();
  QWidget* Geometrie();
  QWidget* Recalage();
  void Tourne(int index);
  void Place();

  std::vector<QWidget*> avecSelection_;  // what works on the selection
  std::vector<QWidget*> avecDessin_;     // what needs a drawing
  CadreDeplacement* deplacement_ = nullptr;
  CadreDimensions* dimensions_ = nullptr;
  ChampNombre* angle_ = nullptr;
  std::array<QToolButton*, 2> rotation_{};
  std::array<ChampNombre*, 2> recalage_{};
};

}  // namespace ovelin
