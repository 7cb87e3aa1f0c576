// The picture `PB1` of a program: its way and its box, turned, shifted and zoomed with the mouse.
#pragma once

#include <QImage>
#include <QTimer>
#include <QWidget>
#include <optional>

#include "gcode/SceneProgramme.h"

namespace ovelin {

class ToileGL;

// Drawn by OpenGL where the screen has one, else painted; what is seen is the same.
class ImageProgramme : public QWidget {
  Q_OBJECT
 public:
  explicit ImageProgramme(QWidget* parent = nullptr);

  // Its texts in the language in force.
  void Traduit();
  // The measure has to outlive the picture, or be replaced. The view is fitted anew.
  void Montre(const MesureProgramme* mesure);
  void Vue(VueProgramme vue);
  [[nodiscard]] VueProgramme Vue() const { return vue_; }
  void Rapides(bool montres);
  // Back to the whole program, from where this view looks.
  void Ajuste();
  void Outil(const std::optional<Lieu>& lieu);
  [[nodiscard]] const Camera& EtatCamera() const { return camera_; }
  // Segments of the picture as it is shown.
  [[nodiscard]] std::size_t Segments() const { return NombreSegments(scene_); }

 Q_SIGNALS:
  void VueChangee(ovelin::VueProgramme vue);
  // The picture is being shifted: the text that tells how far.
  void Deplacee(const QString& texte);

 protected:
  void paintEvent(QPaintEvent* e) override;
  void resizeEvent(QResizeEvent* e) override;
  void changeEvent(QEvent* e) override;
  void mousePressEvent(QMouseEvent* e) override;
  void mouseMoveEvent(QMouseEvent* e) override;
  void mouseReleaseEvent(QMouseEvent* e) override;
  void wheelEvent(QWheelEvent* e) override;

 private:
  void Bouge();  // redrawn coarsely now, fully when it rests
  void Redessine();
  [[nodiscard]] bool Montrable() const { return mesure_ != nullptr && mesure_->mouvements > 0; }
  // The scene anew where it has to be; true: it was.
  bool ConstruitScene();
  void Peint();
  void RetireToile();

  const MesureProgramme* mesure_ = nullptr;
  Camera camera_;
  VueProgramme vue_ = VueProgramme::Dessus;
  bool rapides_ = true;
  std::optional<Lieu> outil_;
  Scene scene_;
  QImage image_;
  QTimer repos_;
  bool tourne_ = false;
  bool aPeindre_ = true;
  ToileGL* toile_ = nullptr;  // none: painted
};

}  // namespace ovelin
