// The picture of the keyboard: the keys of manual control where they lie, what each of them does, and a white
// circle over the one that is pressed. The keys can be pressed with the pointer.
#pragma once

#include <QWidget>
#include <span>

namespace ovelin {

class ImageClavier : public QWidget {
  Q_OBJECT
 public:
  explicit ImageClavier(QWidget* parent = nullptr);

  void Encercle(int code);  // 0: no circle
  [[nodiscard]] int Encerclee() const { return encerclee_; }
  // A modifier that is set is drawn pressed.
  void Enfonce(bool majuscule, bool controle);
  // The key of the mode in force has a rim.
  void Choisit(int code);
  // Middle of the key of that code, in the coordinates of the picture.
  [[nodiscard]] QPoint Milieu(int code) const;
  // The pointer has been let go somewhere.
  void Relache();

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;

 Q_SIGNALS:
  void Appuyee(int code);
  void Lachee(int code);

 protected:
  void paintEvent(QPaintEvent* e) override;
  void mousePressEvent(QMouseEvent* e) override;
  void mouseReleaseEvent(QMouseEvent* e) override;

 private:
  struct Touche;
  static std::span<const Touche> Touches();
  [[nodiscard]] QRectF Place(const Touche& touche) const;
  [[nodiscard]] const Touche* Sous(const QPointF& point) const;
  void PeintTouche(QPainter& p, const Touche& touche) const;

  int encerclee_ = 0, pointee_ = 0, choisie_ = 0;
  bool majuscule_ = false, controle_ = false;
};

}  // namespace ovelin
