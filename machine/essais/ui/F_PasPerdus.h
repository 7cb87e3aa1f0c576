// The lost-step test. Modal: it reads and fills the fields of the window of parameters.
#pragma once

#include <QDialog>
#include <array>
#include <cstdint>

class QLabel;
class QPushButton;
class QRadioButton;

namespace ovelin {

class ChampNombre;

class F_PasPerdus : public QDialog {
  Q_OBJECT
 public:
  explicit F_PasPerdus(QWidget* parent = nullptr);

  // The board has the table, and the window the place where it was.
  void Form_Load();

 public Q_SLOTS:
  // While a step is under way: a beep, and the window stays.
  void done(int resultat) override;

 protected:
  void keyPressEvent(QKeyEvent* e) override;

 private:
  void Construit();
  QLayout* RangeeBoutonsPas();
  [[nodiscard]] int Axe() const;
  void Cmd_Depl_Click(int index);
  void MontreCompteur(std::int32_t compteur);
  void RetablitPlace();

  std::array<QRadioButton*, 3> Option_Axe_{};
  ChampNombre* TB_Vitesse_ = nullptr;
  std::array<QPushButton*, 2> Cmd_Depl_{};
  QPushButton* Cmd_RAZ_ = nullptr;
  QPushButton* CMD_Memoriser_ = nullptr;
  QPushButton* Btn_Fermer_ = nullptr;
  QLabel* Label_Aide_ = nullptr;
  QLabel* Label_Compteur_ = nullptr;
  QLabel* Label_Etat_ = nullptr;
  std::int32_t compteur_ = 0;
};

}  // namespace ovelin
