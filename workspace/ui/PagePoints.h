// Page "Points" of the panel: what is done with the points chosen in TreeView1, and with the marked position.
#pragma once

#include <QAbstractButton>
#include <QFrame>
#include <QLabel>
#include <QListView>
#include <cstdint>
#include <functional>
#include <vector>

#include "core/ui/ChampNombre.h"
#include "workspace/Module_Arbres.h"
#include "workspace/Module_Panneau.h"

namespace ovelin {

class ModelePoints;

class PagePoints : public QWidget {
  Q_OBJECT
 public:
  explicit PagePoints(QWidget* parent = nullptr);

  void Remplit(const ChampsPanneau& champs);   // after InitSeq
  void MontrePoint(const ResultatClic& clic);  // a point line of TreeView1 was clicked: it becomes the current one
  // The selected point lines of TreeView1, indices in TraceInitial, rising.
  std::function<std::vector<std::int32_t>()> PointsChoisis;
  // Around the move of a point of that path, which changes nothing but places in the lists.
  std::function<void(Code2 code)> AvantPosition;
  std::function<void()> ApresPosition;

 private:
  QWidget* Liste();
  QWidget* Boutons();
  QWidget* Position();
  QWidget* Origine();
  void RelitChoix();                               // the list from the tree
  void ActivePoint();                              // buttons and fields of the current point
  [[nodiscard]] std::int32_t PointActuel() const;  // index in TraceInitial, -1 for none
  void Depart();
  void Supprime();
  void PositionOK();

  ModelePoints* modele_;
  QListView* liste_ = nullptr;
  QLabel* invite_ = nullptr;
  QFrame* cadrePosition_ = nullptr;
  QLabel* marquee_ = nullptr;
  ChampNombre* x_ = nullptr;
  ChampNombre* y_ = nullptr;
  QAbstractButton *depart_ = nullptr, *supprime_ = nullptr, *position_ = nullptr, *goto_ = nullptr;
  QAbstractButton *positionOK_ = nullptr, *origine_ = nullptr;
};

}  // namespace ovelin
