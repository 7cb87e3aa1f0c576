// The page of the settings on which the user chooses a board.
#pragma once

#include <QWidget>
#include <functional>
#include <string>
#include <vector>

class QComboBox;
class QLineEdit;
class QListWidget;
class QPushButton;

namespace ovelin {

// A device on USB: "1A2B:3C4D", and what it calls itself.
struct AppareilPresent {
  std::string identite, nom;
};
// Filled by the program: the devices that are plugged in, and what follows when another board has been chosen.
// Empty functions: none, nothing.
extern std::function<std::vector<AppareilPresent>()> AppareilsPresents;
extern std::function<void()> CarteReglee;

class PageChoixCarte : public QWidget {
  Q_OBJECT
 public:
  explicit PageChoixCarte(QWidget* parent = nullptr);

  // The keys as they stand in the settings file.
  void Montre();
  // The first field that forbids the choice, or null: an identity that is none, a library without its full path.
  [[nodiscard]] QWidget* Refusee() const;
  // Into the settings file, never into a project. True: something has changed.
  bool Ecrit() const;

 private:
  void Construit();
  void RemplitAppareils();
  void SuitChoix();
  void Parcourt();
  [[nodiscard]] std::string Carte() const;

  QComboBox* Combo_Carte_ = nullptr;
  QListWidget* LB_Appareils_ = nullptr;
  QLineEdit* TB_Usb_ = nullptr;
  QLineEdit* TB_Bibliotheque_ = nullptr;
  QPushButton* Btn_Parcourir_ = nullptr;
};

}  // namespace ovelin
