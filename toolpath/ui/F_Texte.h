// A line of text in an installed font, as paths of the drawing.
#pragma once

#include <QDialog>
#include <array>
#include <cstdint>
#include <string>

class QCheckBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QProgressBar;
class QPushButton;
class QSlider;

namespace ovelin {

class ApercuTexte;
class ChampNombre;

class F_Texte : public QDialog {
  Q_OBJECT
 public:
  explicit F_Texte(QWidget* parent = nullptr);
  ~F_Texte() override;

 protected:
  void showEvent(QShowEvent* e) override;

 private:
  void Construit();
  QLayout* ConstruitStyle();
  void Restaure();
  void Enumere();  // fills List1
  void ChoisitPolice(const QString& nom);
  void Apercu();
  void CB_Generer_Click();
  [[nodiscard]] std::string Police() const;
  [[nodiscard]] std::int32_t Style() const;

  QLineEdit* TB_Texte_ = nullptr;
  QListWidget* List1_ = nullptr;
  std::array<QCheckBox*, 2> CB_Flag_{};  // italic, bold
  QSlider* HScroll1_ = nullptr;          // thousandths of an em between letters
  QLabel* Lbl_Espace_ = nullptr;
  ChampNombre* TB_Hauteur_ = nullptr;
  ApercuTexte* PB1_ = nullptr;
  QProgressBar* ProgressBar1_ = nullptr;
  QLabel* StatusBar1_ = nullptr;
  QPushButton* CB_Generer_ = nullptr;
  bool enumeree_ = false;
};

}  // namespace ovelin
