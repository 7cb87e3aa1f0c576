// The strip over the picture that says by how much the cuts leave the travel of the machine, with the button that
// brings them back.
#pragma once

#include <QFrame>
#include <QLabel>
#include <QPushButton>

namespace ovelin {

class AlerteCourse : public QFrame {
  Q_OBJECT
 public:
  explicit AlerteCourse(QWidget* parent);

  // Shown where the document in force leaves the travel, and placed at the foot of the picture.
  void Suit();
  // While a job runs on the machine nothing is moved.
  void EnRun(bool enRun);

 Q_SIGNALS:
  void Place();

 protected:
  bool eventFilter(QObject* objet, QEvent* e) override;

 private:
  void Dispose();

  QLabel* texte_;
  QPushButton* bouton_;
};

}  // namespace ovelin
