// The fields of the tool in the milling window, by the rules that the main window's have too.
#pragma once

#include <QGroupBox>
#include <vector>

#include "core/ui/ChampNombre.h"
#include "toolpath/ChampsOutil.h"

class QLabel;

namespace ovelin {

class PanneauOutil : public QGroupBox {
  Q_OBJECT
 public:
  explicit PanneauOutil(QWidget* parent = nullptr);

  // The values in force, but in a field that somebody types in or whose entry was refused.
  void Suit();
  [[nodiscard]] std::vector<QWidget*> Champs() const;

 Q_SIGNALS:
  // An entry has been taken over: the plan is another one.
  void Change();

 private:
  struct ChampOutil {
    ChampNombre* champ = nullptr;
    const LigneOutil* ligne = nullptr;
  };
  void Entre(const ChampOutil& champ);
  void MontreRampe();

  QLabel* rampe_ = nullptr;  // what a ramp needs
  std::vector<ChampOutil> champs_;
};

}  // namespace ovelin
