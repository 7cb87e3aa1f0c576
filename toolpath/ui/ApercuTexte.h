// A line of text as it would be cut: the outlines themselves, fitted to the box.
#pragma once

#include <QPainterPath>
#include <QWidget>
#include <cstdint>
#include <string>

namespace ovelin {

class ApercuTexte : public QWidget {
  Q_OBJECT
 public:
  explicit ApercuTexte(QWidget* parent = nullptr);
  // Long texts are shown by their beginning. False: the font or the text gives no outline.
  bool Montre(const std::string& texte, const std::string& police, std::int32_t espace, std::int32_t style);
  [[nodiscard]] const QPainterPath& Chemin() const { return chemin_; }
  [[nodiscard]] QSize sizeHint() const override { return {360, 110}; }
  [[nodiscard]] QSize minimumSizeHint() const override { return {200, 70}; }

 protected:
  void paintEvent(QPaintEvent* e) override;

 private:
  QPainterPath chemin_;  // mm, Y upward, at the library's own height
};

}  // namespace ovelin
