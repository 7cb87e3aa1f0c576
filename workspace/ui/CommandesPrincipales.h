// The commands of the main window: one action each, under its own name, in the menus and on the toolbar.
#pragma once

#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QMenuBar>
#include <QToolBar>
#include <cstdint>
#include <functional>
#include <map>
#include <string>

#include "core/Gestes.h"
#include "workspace/ui/TableCommandes.h"

namespace ovelin {

// What the commands of the table do is given by name; a command without an entry isn't shown. While an operation of
// the board runs, a command that the table doesn't allow then only beeps.
using Executions = std::map<std::string, std::function<void()>>;

class CommandesPrincipales : public QObject {
  Q_OBJECT
 public:
  // Menus into `menus`, buttons into `barre`; what is made belongs to `parent`.
  CommandesPrincipales(QMenuBar* menus, QToolBar* barre, const Executions& executions, QObject* parent);

  // The command, or null where it isn't shown.
  [[nodiscard]] QAction* Action(const char* nom) const;
  void Active(const char* nom, bool active);
  void Coche(const char* nom, bool coche);  // a toggle, without running it
  // Menus and buttons that need a drawing.
  void DessinOuvert(bool ouvert);
  // A job runs on the machine: what the table doesn't allow then is disabled, and as it was when it has ended.
  void EnRun(bool enRun);
  // Now, or where something long runs behind it.
  void Execute(const std::function<void()>& commande);
  // The button mnu_Undo on the toolbar.
  void MontreUndo(bool visible);

  // The commands of the menu of the picture and the trees.
  void RemplitContexte(QMenu& menu) const;

  // Entries of the recent files, from index 1.
  void RemplitRecents(const std::vector<std::string>& textes);
  std::function<void(std::size_t index)> Recent;
  // Whether the file of an entry is there: one that is gone is grey. Asked when the menu opens.
  std::function<bool(std::size_t index)> RecentPresent;

  // Combo_Zoom: an item "+", " ", "-" was chosen; its arrows or the wheel: 1 up, -1 down.
  std::function<void(const std::string& choix)> ChoixZoom;
  std::function<void(PasZoom pas)> Zoome;

  [[nodiscard]] QComboBox* CB_BD() const { return cbBD_; }
  [[nodiscard]] QComboBox* Combo_Zoom() const { return comboZoom_; }
  // The button that stands out, again for another palette; the others follow it by themselves.
  void DessineBoutonPrincipal();
  // Words on the tool bar give way where they would push buttons out of sight: first those beside the materials,
  // then those of the button that stands out. Called by itself when the bar has another width.
  void AjusteBarre();

 protected:
  bool eventFilter(QObject* objet, QEvent* e) override;

 private:
  enum class Serre : std::uint8_t { Large, SansMateriau, Icones };
  void SerreBarre(Serre serre);
  QAction* Cree(const LigneCommande& ligne);
  void Applique(const LigneCommande& ligne);
  void RemplitMenus(QMenuBar* menus);
  void RemplitBarre(QToolBar* barre);
  void GriseRecents();
  void AjouteBouton(const char* nom);
  void AjouteMateriau();
  void AjouteZoom();

  const Executions& executions_;
  bool enRun_ = false;
  std::map<std::string, bool> eteintes_;  // disabled by what there is to do, run or not
  std::map<std::string, QAction*> actions_;
  std::map<std::string, QAction*> boutons_;
  QToolBar* barre_;
  bool ajuste_ = false;  // the bar is being adjusted
  QMenu* menuFichier_ = nullptr;
  QAction* separateurRecents_ = nullptr;
  std::vector<QAction*> recents_;
  QLabel* lblBD_ = nullptr;
  QComboBox* cbBD_ = nullptr;
  QComboBox* comboZoom_ = nullptr;
};

}  // namespace ovelin
