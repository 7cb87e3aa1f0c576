// The G-code workshop: a program's lines, judged, beside the picture of its way.
#pragma once

#include <QDialog>
#include <array>

#include "gcode/Mesure.h"
#include "gcode/Programme.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QPushButton;
class QTableView;
class QToolButton;

namespace ovelin {

class ImageProgramme;
class ModeleProgramme;

class F_Gcode : public QDialog {
  Q_OBJECT
 public:
  explicit F_Gcode(QWidget* parent = nullptr);
  ~F_Gcode() override;

  // Before each showing: the tables as they are, and the file that the window was opened for.
  void Form_Load();
  // Reads, judges and shows a file. What can't be read is told, and the program before it stays.
  void Ouvre(const std::string& chemin);
  [[nodiscard]] QSize sizeHint() const override;

 public Q_SLOTS:
  void done(int resultat) override;

 protected:
  void changeEvent(QEvent* e) override;

 private:
  void Construit();
  QWidget* ConstruitListe();
  QWidget* ConstruitVue();
  void AjusteColonnes();
  void RemplitTables();
  void Combo_Table_Click(const QString& nom);
  void MontreMesure();
  void MontreAvis();
  void SuitVue();
  void Titre(const QString& deplacement);
  void MontreDevant(bool devant);
  void mnu_Fraisage_Click();
  void Btn_Reprise_Click();
  void Fraise(bool reprise);
  void MontreRun(bool enCours);

  Programme programme_;
  MesureProgramme mesure_;
  std::string fichier_;
  bool devant_ = false;
  bool fraise_ = false;       // a run of this program goes on
  bool attendOutil_ = false;  // for Btn_Reprise
  ModeleProgramme* modele_ = nullptr;
  QPushButton* mnu_Ouvrir_ = nullptr;
  QComboBox* Combo_Table_ = nullptr;
  QPushButton* mnu_Fraisage_ = nullptr;
  QPushButton* Btn_Stop_ = nullptr;
  QPushButton* Btn_Reprise_ = nullptr;
  QTableView* LV1_ = nullptr;
  QCheckBox* CB_Refusees_ = nullptr;
  QLabel* Lbl_Comptes_ = nullptr;
  std::array<QToolButton*, 4> Option_Vue_{};
  QCheckBox* CB_Rapides_ = nullptr;
  QPushButton* Btn_Ajuster_ = nullptr;
  ImageProgramme* PB1_ = nullptr;
  QLabel* Lbl_Bornes_ = nullptr;
  QLabel* Lbl_Avis_ = nullptr;
};

}  // namespace ovelin
