#include "app/ovelin/Options.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <string_view>

#include "core/Traduction.h"
#include "workspace/Formats.h"

namespace ovelin {

namespace {

// Options of the toolkit that take the argument behind them.
constexpr std::array<std::string_view, 11> OptionsQt = {
    "platform", "platformpluginpath", "platformtheme",   "plugin",       "style",  "stylesheet",
    "display",  "geometry",           "qwindowgeometry", "qwindowtitle", "session"};

struct Option {
  std::string nom, valeur;
  bool avecValeur = false;
};

// "--config=DIR", "-style", "--lang".
Option Decoupe(const std::string& argument) {
  const std::size_t debut = argument.starts_with("--") ? 2 : 1;
  const std::size_t egal = argument.find('=');
  if (egal == std::string::npos) return {argument.substr(debut), "", false};
  return {argument.substr(debut, egal - debut), argument.substr(egal + 1), true};
}

bool LangueExiste(const std::string& code) {
  const auto& langues = Langues();
  return std::any_of(langues.begin(), langues.end(), [&code](const LangueConnue& l) { return code == l.code; });
}

std::string Absolu(const std::string& chemin, const std::string& dossierCourant) {
  if (chemin.empty() || chemin.front() == '/') return chemin;
  return (std::filesystem::path(dossierCourant) / chemin).lexically_normal().string();
}

class Lecteur {
 public:
  Lecteur(const std::vector<std::string>& arguments, const std::string& dossierCourant)
      : arguments_(arguments), dossier_(dossierCourant) {}

  OptionsProgramme Lit() {
    bool options = true;
    for (i_ = 0; i_ < arguments_.size() && o_.refus.empty(); ++i_) {
      const std::string& a = arguments_[i_];
      if (options && a == "--") {
        options = false;
      } else if (options && a.size() > 1 && a.front() == '-') {
        Prend(a);
      } else {
        Dessin(a);
      }
    }
    return o_;
  }

 private:
  void Prend(const std::string& argument) {
    const Option option = Decoupe(argument);
    if (argument == "-h" || option.nom == "help") {
      o_.aide = true;
    } else if (option.nom == "version") {
      o_.version = true;
    } else if (option.nom == "config") {
      o_.config = Absolu(Valeur(argument, option), dossier_);
    } else if (option.nom == "open") {
      o_.depose = Absolu(Valeur(argument, option), dossier_);
      if (!o_.dessin.empty()) o_.refus = "one drawing at a time: " + o_.depose;
    } else if (option.nom == "lang") {
      o_.langue = Valeur(argument, option);
      if (o_.refus.empty() && !LangueExiste(o_.langue)) o_.refus = "unknown language: " + o_.langue;
    } else if (std::find(OptionsQt.begin(), OptionsQt.end(), option.nom) != OptionsQt.end()) {
      const std::string valeur = Valeur(argument, option);
      if (option.nom == "platform") o_.plateforme = valeur;
    } else if (option.nom != "reverse") {
      o_.refus = "unknown option: " + argument;
    }
  }

  std::string Valeur(const std::string& argument, const Option& option) {
    std::string valeur = option.valeur;
    if (!option.avecValeur && i_ + 1 < arguments_.size()) valeur = arguments_[++i_];
    if (valeur.empty()) o_.refus = "nothing behind " + argument;
    return valeur;
  }

  void Dessin(const std::string& chemin) {
    if (!o_.dessin.empty() || !o_.depose.empty()) {
      o_.refus = "one drawing at a time: " + chemin;
      return;
    }
    o_.dessin = Absolu(chemin, dossier_);
  }

  const std::vector<std::string>& arguments_;
  const std::string& dossier_;
  std::size_t i_ = 0;
  OptionsProgramme o_;
};

}  // namespace

OptionsProgramme LitOptions(const std::vector<std::string>& arguments, const std::string& dossierCourant) {
  return Lecteur(arguments, dossierCourant).Lit();
}

std::string TexteVersion() {
  return std::to_string(OVELIN_VERSION_MAJEURE) + "." + std::to_string(OVELIN_VERSION_MINEURE) + "." +
         std::to_string(OVELIN_VERSION_REVISION);
}

std::string TexteAide() {
  return "OVELIN: from a drawing to the moves of a small router\n"
         "Usage: ovelin [OPTIONS] [DRAWING]\n\n"
         "  DRAWING            " +
         EnListe(ExtensionsArgument()) +
         "\n"
         "  --open FILE        A file of any kind that can be opened, as if it were dropped on the window\n"
         "  --config DIR       Folder of the settings file\n"
         "  --lang CODE        Language of the texts: fr, en, de, es, ca, it, pt\n"
         "  --version          Prints the version\n"
         "  -h, --help         Prints this text\n\n"
         "Options of the toolkit (-platform, -style, -geometry ...) are understood as well.\n"
         "Exit: 0 done, 1 another copy runs, 2 usage, 3 no display. Without a display, see ovelin-cli.\n";
}

}  // namespace ovelin
