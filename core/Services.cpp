#include "core/Services.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <thread>

#include "core/Etat.h"
#include "core/Traduction.h"
#include "core/Types.h"

namespace ovelin {

Services Svc = ServicesMuets();
void (*ArretFatal)() = nullptr;

namespace {
[[maybe_unused]] const bool Enregistree = EnregistreRemise([] { Svc = ServicesMuets(); });
}

BoiteMessage BoiteDe(CleTexte texte, Icone icone, Boutons boutons) {
  BoiteMessage boite;
  boite.section = texte.Section();
  boite.cle = texte.Cle();
  boite.texte = Traduire(texte);
  boite.titre = NomProgramme;
  boite.icone = icone;
  boite.boutons = boutons;
  return boite;
}

Reponse Message(CleTexte texte, Icone icone, Boutons boutons, std::string_view titre) {
  BoiteMessage boite = BoiteDe(texte, icone, boutons);
  boite.titre = titre;
  return Svc.Montre(boite);
}

void MessageFichier(CleTexte texte, const std::string& suite, Icone icone, const std::string& fichier) {
  BoiteMessage boite = BoiteDe(texte, icone);
  boite.texte += suite;
  boite.fichier = fichier;
  Svc.Montre(boite);
}

void Travaille(const std::function<void()>& noyau) {
  if (Svc.EnFond) {
    Svc.EnFond(noyau);
  } else {
    noyau();
  }
}

void TravailleSi(bool long_, const std::function<void()>& noyau) {
  if (long_) {
    Travaille(noyau);
  } else {
    noyau();
  }
}

Services ServicesMuets() {
  Services s;
  s.Montre = [](const BoiteMessage& boite) -> Reponse {
    std::fprintf(stderr, "box without an answer: %s %s \"%s\"\n", boite.section.c_str(), boite.cle.c_str(),
                 boite.texte.c_str());
    Impossible("unanswered box", __FILE__, __LINE__);
  };
  s.ChoisitFichier = [](const DialogueFichier& d) -> std::string {
    std::fprintf(stderr, "file dialog without an answer: %s\n", d.cle.c_str());
    Impossible("unanswered file dialog", __FILE__, __LINE__);
  };
  s.Saisit = [](CleTexte cle, const std::string&, const std::string&) -> std::string {
    std::fprintf(stderr, "prompt without an answer: %s\n", std::string(cle.Cle()).c_str());
    Impossible("unanswered prompt", __FILE__, __LINE__);
  };
  s.Dimensionne = [](DemandeDimension&) {};
  s.OuvreFenetre = [](const std::string& nom) -> std::optional<int> {
    std::fprintf(stderr, "window without an answer: %s\n", nom.c_str());
    Impossible("unanswered window", __FILE__, __LINE__);
  };
  s.OuvreParBureau = [](const std::string& cible) -> IssueBureau {
    std::fprintf(stderr, "nobody opens %s\n", cible.c_str());
    Impossible("no desktop", __FILE__, __LINE__);
  };
  s.AvancementDebut = [](const std::string&, long) {};
  s.AvancementPlus = [] {};
  s.AvancementFin = [] {};
  s.Panneau = [](PanneauEtat, const std::string&) {};
  s.RafraichitEtat = [] {};
  s.Rafraichit = [] {};
  s.DessinOuvert = [](bool) {};
  s.TitreDessin = [](const std::string&) {};
  s.FichierRecent = [](const std::string&) {};
  s.RetientVeille = [](bool) {};
  s.MarquePosition = [](double, double) {};
  s.MontrePosition = [](double, double, double) {};
  s.LigneRun = [](float, float, float, float) {};
  s.EffaceLigneRun = [] {};
  s.MontreStop = [](bool) {};
  s.MontreRun = [](bool) {};
  s.Pilotage = [](DemandePilotage) {};
  s.Timer_Interro = [](bool) {};
  s.Battement = [](const std::function<void()>&) {};
  s.LaisseEvenements = [](Evenements) {};
  s.Horloge = [] {
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
  };
  s.Attend = [](double secondes) { std::this_thread::sleep_for(std::chrono::duration<double>(secondes)); };
  s.Bip = [] {};
  return s;
}

void Impossible(const char* quoi, const char* fichier, int ligne) {
  std::fprintf(stderr, "%s:%d: %s\n", fichier, ligne, quoi);
  if (ArretFatal != nullptr) ArretFatal();
  std::abort();
}

}  // namespace ovelin
