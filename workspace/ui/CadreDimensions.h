// FRAME1_DIMENSIONS: size, ratio and result of the selection.
#pragma once

#include <QCheckBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>
#include <array>
#include <string>

#include "workspace/Module_Panneau.h"
#include "workspace/Module_PanneauChamps.h"
#include "workspace/ui/Saisie.h"

namespace ovelin {

class CadreDimensions : public QGroupBox {
  Q_OBJECT
 public:
  explicit CadreDimensions(QWidget* parent = nullptr);

  void Montre(const ChampsPanneau& champs);
  // Behind a turn: the new sizes, also as results.
  void MontreTailles(const std::array<std::string, 2>& tailles);

 private:
  void Entre(int axe, bool resultat, const std::string& texte);
  void Commence(const std::array<std::string, 2>& tailles);
  void MontreChamps();
  void Applique();

  ChampsDimension champs_;
  std::array<ChampNombre*, 2> initial_{};
  std::array<Saisie*, 2> rapport_{};
  std::array<Saisie*, 2> resultat_{};
  QCheckBox* prop_ = nullptr;
  QPushButton* ok_ = nullptr;
};

}  // namespace ovelin
