// The sheet over the status bar with the details of a reading, to be read and copied.
#pragma once

#include <QFrame>
#include <QPlainTextEdit>

namespace ovelin {

// A popup that ends itself: Escape and a press beside it close it.
class FeuilleLecture : public QFrame {
  Q_OBJECT
 public:
  FeuilleLecture(const QString& details, QWidget* parent);
  // Above `bouton`, inside its window.
  void MontreSur(const QWidget& bouton);

 private:
  QPlainTextEdit* texte_;
};

}  // namespace ovelin
