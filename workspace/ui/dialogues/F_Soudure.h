// The tolerance within which ends of a drawing are joined when it is read.
#pragma once

#include <QDialog>

#include "core/ui/ChampNombre.h"

class QScrollBar;

namespace ovelin {

class F_Soudure : public QDialog {
  Q_OBJECT
 public:
  explicit F_Soudure(QWidget* parent = nullptr);

 private:
  void Construit();
  void SuitChamp();  // the bar goes to the place nearest to the field
  void SuitCurseur(int place);

  QScrollBar* VScroll_Tolerance_ = nullptr;
  ChampNombre* TB_Tolerance_ = nullptr;
};

}  // namespace ovelin
