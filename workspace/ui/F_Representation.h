// The main window: it is the application. Lays out menus, toolbar, picture, side panel and status bar, hands events
// to the procedures and shows what comes back.
#pragma once

#include <QByteArray>
#include <QMainWindow>
#include <QSplitter>
#include <functional>
#include <optional>
#include <string>

#include "base/SansCopie.h"
#include "core/Services.h"
#include "core/ServicesPasse.h"
#include "core/ui/Fenetres.h"
#include "image/Vue.h"
#include "workspace/FinCycle.h"
#include "workspace/Module_Annulation.h"
#include "workspace/Module_Cycle.h"
#include "workspace/Module_Ouverture.h"
#include "workspace/ui/Accueil.h"
#include "workspace/ui/AlerteCourse.h"
#include "workspace/ui/BarreEtat.h"
#include "workspace/ui/CommandesPrincipales.h"
#include "workspace/ui/FrameAvancement.h"
#include "workspace/ui/ImagePB1.h"
#include "workspace/ui/PanneauHistorique.h"
#include "workspace/ui/PanneauLateral.h"
#include "workspace/ui/SuiviRun.h"

namespace ovelin {

class F_Representation : public QMainWindow {
  Q_OBJECT
 public:
  explicit F_Representation(QWidget* parent = nullptr);
  ~F_Representation() override;

  // The load, in its binding order; `ligneCommande` as the program was given it. The window must have its services
  // (see InstalleServicesQt); it adds those that show the document.
  void Form_Load(const std::string& ligneCommande);

  // A file is opened as one that is dropped on the window, once nothing long runs. False: the window opens no such
  // kind, and nothing comes of it.
  bool Depose(const std::string& chemin);
  // The program ends now and nobody can be asked: settings are written, edited work stays for the next start.
  void TermineSansQuestion();
  // The desktop ends its session and lets a program ask. False: the user goes back. The close that follows asks no
  // second time, as long as nothing is drawn anew.
  bool PeutFinir();

  // The user's documents, where a copy of the settings file is left at the end; "" for none.
  std::string DossierDocuments;

 protected:
  void closeEvent(QCloseEvent* e) override;
  void changeEvent(QEvent* e) override;
  void dragEnterEvent(QDragEnterEvent* e) override;
  void dropEvent(QDropEvent* e) override;
  void keyPressEvent(QKeyEvent* e) override;
  bool eventFilter(QObject* objet, QEvent* e) override;

 private:
  // layout
  void Dispose();
  void Relie();
  void InstalleServices();
  void Place();  // where and how large the window was
  void PlaceFenetre(const char* nom, bool neuve);
  void RentreDansEcran();  // no edge lies beyond the screen
  void AppliqueTheme();
  [[nodiscard]] EtatFenetre EtatCourant() const;

  // the document on show
  void Rafraichit();
  void Dessine();  // the picture, or what to do while there is no drawing
  // A change whose tool path is being computed: the drawing alone, until the pass is over or taken back.
  bool MenePasse(const PasseInterruptible& passe);
  void MontreSansTrajet();
  void ChangementRepris();
  void DessinOuvert(bool ouvert);
  void RendOuverture();     // the window is that of the drawing before
  void Redessine(bool du);  // Dessin where a procedure says that it is due
  void SuitSouris(const SuiteSouris& suite);
  void SuitOutils();
  void SuitImage();
  void AfficheCarte();  // the board's panel, where its presence has changed
  void RegleTimer_Interro();
  void Titre();
  void Parle();            // status and star follow the document
  void EnRun(bool enRun);  // a job runs on the machine, or has ended
  void FermeApresRun();    // the end of the program waits for the machine
  void MontreMateriau();   // the list of materials and its tip follow what is in force
  void BulleMateriau();
  void ChangeLangue();  // every text anew

  // commands
  Executions ToutesExecutions();
  void Ouvre(const std::string& chemin);              // without a dialog
  Ouverture OuvreFichier(const std::string& chemin);  // read as a value first: a refused file leaves the open job
  // The one question in front of what replaces or ends the job. True: it may go.
  bool PeutLaisser();
  bool Enregistre(bool (*procedure)());  // mnu_Save or mnu_SaveAs
  void OffreReprises();                  // work of a program that died
  void ApresOuverture();
  void MontreEcartes();                         // what the reading of the drawing left out
  void MontreRecents();                         // in the menu, and where there is no drawing
  void OuvreChoisi(const std::string& chemin);  // a recent file or an example
  // mnu_Undo, mnu_Redo or a jump
  void Annule(const std::function<ResultatAnnulation(const CrochetsAnnulation&)>& pas);
  void SuitAnnulation(bool bouton);  // commands and list of steps follow the snapshots
  void Copie();
  void Colle();
  void Duplique();
  void RemplitCB_BD();
  void ChoisitMateriau(int rang);
  IssueFenetre Fenetre(const char* nom);
  void Supprime();
  void mnu_ParamAppli();
  void mnu_Defaut();
  void mnu_Nettoyage();
  void MenuImage(const QPoint& ecran);
  bool FlecheDeplace(int touche, Qt::KeyboardModifiers touches);

  // An opening from its first question to its end, however it ends: a quit that comes meanwhile is put off.
  class PendantOuverture : base::SansCopie {
   public:
    explicit PendantOuverture(F_Representation& fenetre) : fenetre_(fenetre) { fenetre_.ouvre_ = true; }
    ~PendantOuverture() { fenetre_.FinitOuverture(); }

   private:
    F_Representation& fenetre_;
  };
  void FinitOuverture();

  Executions executions_;
  Services avant_;  // as before this window, put back at its end
  ServicesPasse avantPasse_;
  QToolBar* TB1_ = nullptr;
  CommandesPrincipales* commandes_ = nullptr;
  QSplitter* separateur_ = nullptr;
  ImagePB1* PB1_ = nullptr;
  Accueil* vide_ = nullptr;  // what to do while there is no drawing
  PanneauHistorique* historique_ = nullptr;
  PanneauLateral* panneau_ = nullptr;
  BarreEtat* SB1_ = nullptr;
  FrameAvancement* cadre_ = nullptr;
  AlerteCourse* alerte_ = nullptr;
  SuiviRun* suivi_ = nullptr;
  QTimer* Timer_Interro_ = nullptr;
  QTimer* Timer_Cadre_ = nullptr;
  QTimer* Timer_Fin_ = nullptr;    // the machine is stopping, the window closes behind it
  std::optional<CleTexte> carte_;  // the board's name as it is shown
  int collees_ = 0;                // copies pasted since the last one was made
  QByteArray copiee_;              // what the clipboard held when PressePapiers was filled
  bool charge_ = false;
  bool repris_ = false;        // the command at work was taken back: nothing was refused
  bool ouvre_ = false;         // an opening runs, its dialogs included
  bool fermetureDue_ = false;  // the window was to close meanwhile
  QString titre_;              // of a drawing that comes from no file
  bool ouverture_ = false;     // the drawing of before is gone, the new one is not ready
  struct {                     // the window as it was before that
    bool dessin = false, annuler = false, refaire = false;  // what is enabled
    bool change = false;                                    // its work
    QString titre;
    EtatVue vue;
  } avantOuverture_;
  bool outilMontre_ = false;  // the fields of the tool show that of the new drawing
  bool dechargee_ = false;
  bool finRepondue_ = false;  // the question in front of the end has its answer
};

}  // namespace ovelin
