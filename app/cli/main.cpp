// ovelin-cli: the program without a window. Options and commands here, what they do beside.
#include <CLI/CLI.hpp>
#include <cstdio>
#include <exception>
#include <functional>
#include <new>
#include <string>
#include <vector>

#include "app/cli/Commandes.h"
#include "app/cli/Operations.h"
#include "closed/CarteVirtuelle.h"
#include "controller/OperateurCarte.h"
#include "core/ClesReglages.h"
#include "workspace/Formats.h"

namespace {

using namespace ovelin::cli;

// What the chosen command does, run when all options are known and the program has started.
using Action = std::function<int()>;

struct Options {
  OptionsFraisage fraisage;
  std::string dessin, sortie, operations, source, dialecte, rampe;
  OptionsPlan plan;
  std::string nom, nouveau, cle, valeur, interface;
  int rang = 0, numero = 0;
  PlageFlash plage;
  std::vector<std::string> octets;
  std::vector<std::string> champs = std::vector<std::string>(9);
};

void OptionsCommunes(CLI::App& app, Contexte& c) {
  app.fallthrough();
  app.add_option("--config", c.config, "Folder of the settings file")->type_name("DIR");
  app.add_option("--lang", c.langue, "Language of messages")
      ->check(CLI::IsMember({"fr", "en", "de", "es", "ca", "it", "pt"}));
  app.add_option("--decimal", c.decimale, "Decimal mark of texts and files")->check(CLI::IsMember({",", "."}));
  app.add_flag("--json", c.json, "One JSON object on standard output");
  app.add_option("--table", c.table, "Machine table of this call")->type_name("NAME");
  app.add_option("--material", c.materiau, "Material row applied to the drawing")->type_name("NAME");
  app.add_option("--unit", c.unite,
                 "Unit of an SVG drawing whose size has none; px (96 an inch) without this option")
      ->check(CLI::IsMember({"mm", "cm", "in", "pt", "px"}));
  app.add_option("--page", c.page, "Page of a PDF, from 1")->type_name("N")->check(CLI::Range(1, 100000));
  app.add_option("--set", c.reglages, "A key for this call alone, never written (RayonFraise=1.5, TB_SAV_15=20)")
      ->type_name("KEY=VALUE")
      ->allow_extra_args(false);
  app.add_option("--answer", c.reponses, "Answer of a question by its key")
      ->type_name("KEY=yes|no|ok|cancel, F_ChangtTable=0|1|2|cancel")
      ->allow_extra_args(false);
}

CLI::App* Commande(CLI::App& app, const char* nom, const char* quoi) {
  CLI::App* commande = app.add_subcommand(nom, quoi);
  commande->fallthrough();
  return commande;
}

CLI::App* AvecDessin(CLI::App& app, const char* nom, const char* quoi, Options& o) {
  CLI::App* commande = Commande(app, nom, quoi);
  commande->add_option("DRAWING", o.dessin, ovelin::EnListe(ovelin::ExtensionsLues()))->required();
  return commande;
}

void Sortie(CLI::App* commande, Options& o, const char* type) {
  commande->add_option("-o,--output", o.sortie, "File to write")->required()->type_name(type);
}

std::string ListeFautes() {
  std::string noms;
  for (const auto& faute : zenikcom::NomsFautes) noms += (noms.empty() ? "" : ", ") + std::string(faute.nom);
  return noms;
}

std::string ListeOperations() {
  std::string texte = "Operations:";
  std::size_t colonne = texte.size();
  for (const std::string& nom : NomsOperations()) {
    if (colonne + nom.size() + 1 > 100) {
      texte += "\n ";
      colonne = 1;
    }
    texte += " " + nom;
    colonne += nom.size() + 1;
  }
  return texte;
}

// The way down along closed paths in this call; a key like any other behind it.
void Rampe(CLI::App* commande, Options& o) {
  commande
      ->add_option("--ramp", o.rampe, "Angle of the way down into closed paths, degrees, at most 45; 0: straight")
      ->type_name("DEG");
}
void PrendRampe(Contexte& c, const Options& o) {
  if (!o.rampe.empty()) c.reglages.push_back(std::string(ovelin::cles::AngleRampe) + "=" + o.rampe);
}

void CommandesDessin(CLI::App& app, Contexte& c, Options& o, Action& action) {
  AvecDessin(app, "info", "Format, points, paths, bounds of a drawing", o)->callback([&] {
    c.informe = true;
    action = [&] { return Info(c, o.dessin); };
  });

  CLI::App* gcode = AvecDessin(app, "gcode", "The job as a G-code file", o);
  Sortie(gcode, o, "OUT.nc");
  gcode->add_option("--dialect", o.dialecte, "What control the file is for, as `dialects` names it")
      ->type_name("NAME");
  Rampe(gcode, o);
  gcode->callback([&] {
    PrendRampe(c, o);
    if (!o.dialecte.empty()) c.reglages.push_back(std::string(ovelin::cles::DialecteNC) + "=" + o.dialecte);
    action = [&] { return GCode(c, o.dessin, o.sortie); };
  });

  CLI::App* save = AvecDessin(app, "save", "The project file of a drawing", o);
  Sortie(save, o, "OUT.OVL");
  save->callback([&] { action = [&] { return Enregistre(c, o.dessin, o.sortie); }; });

  CLI::App* edit = AvecDessin(app, "edit", "Runs a list of operations and saves the project", o);
  edit->add_option("--do", o.operations, "JSON list of operations")->required()->type_name("OPS.json");
  Sortie(edit, o, "OUT.OVL");
  edit->footer(ListeOperations());
  edit->callback([&] { action = [&] { return Edite(c, o.dessin, o.operations, o.sortie); }; });

  CLI::App* exporte = AvecDessin(app, "export", "The drawing or its tool path as a file or a picture", o);
  Sortie(exporte, o, "OUT.{dxf,dat,svg,png}");
  exporte->add_option("--source", o.source, "What is written; pictures show both without it")
      ->check(CLI::IsMember({"initial", "outil"}));
  exporte->callback([&] { action = [&] { return Exporte(c, o.dessin, o.sortie, o.source); }; });

  CLI::App* trace = AvecDessin(app, "trace", "Paths and tool path as JSON", o);
  Sortie(trace, o, "OUT.json");
  trace->callback([&] { action = [&] { return Trace(c, o.dessin, o.sortie); }; });

  CLI::App* plan = AvecDessin(app, "plan", "The table of moves of the job", o);
  plan->add_option("--pos", o.plan.position, "Position of the machine, mm")->type_name("X,Y,Z");
  plan->add_option("--rows", o.plan.lignes, "Rows as CSV")->type_name("OUT.csv");
  plan->add_option("--records", o.plan.records, "Records of the board, 37 bytes each")->type_name("OUT.bin");
  plan->add_option("--flash", o.plan.flash, "The job as the board's flash memory holds it")->type_name("OUT.bin");
  Rampe(plan, o);
  plan->callback([&] {
    PrendRampe(c, o);
    action = [&] { return Planifie(c, o.dessin, o.plan); };
  });
}

void CommandesCles(CLI::App& app, Contexte& c, Options& o, Action& action) {
  CLI::App* key = Commande(app, "key", "Reads or changes a key of the settings file");
  key->require_subcommand(1);
  const auto ajoute = [&](const char* nom, const char* quoi) {
    CLI::App* geste = Commande(*key, nom, quoi);
    geste->add_option("KEY", o.cle)->required();
    return geste;
  };
  ajoute("get", "Prints the value")->callback([&] { action = [&] { return LitCle(c, o.cle); }; });
  CLI::App* set = ajoute("set", "Writes the value");
  set->add_option("VALUE", o.valeur)->required();
  set->callback([&] { action = [&] { return PoseCle(c, o.cle, o.valeur); }; });
  ajoute("delete", "Deletes the key")->callback([&] { action = [&] { return EffaceCle(c, o.cle); }; });
}

void CommandesTables(CLI::App& app, Contexte& c, Options& o, Action& action) {
  CLI::App* tables = Commande(app, "tables", "Machine tables: list, show, use, copy, rename, delete, preset");
  tables->require_subcommand(0, 1);
  tables->callback([&, tables] {
    if (tables->get_subcommands().empty()) action = [&] { return ListeTables(c); };
  });
  Commande(*tables, "list", "Names of the tables and of the interfaces")->callback([&] {
    action = [&] { return ListeTables(c); };
  });
  CLI::App* show = Commande(*tables, "show", "Keys and values of a table");
  show->add_option("NAME", o.nom, "Table, the current one without it");
  show->callback([&] { action = [&] { return MontreTable(c, o.nom); }; });
  const auto ajoute = [&](const char* nom, const char* quoi) {
    CLI::App* geste = Commande(*tables, nom, quoi);
    geste->add_option("NAME", o.nom)->required();
    return geste;
  };
  ajoute("use", "Makes a table current")->callback([&] { action = [&] { return UtiliseTable(c, o.nom); }; });
  CLI::App* copy = ajoute("copy", "Copies a table and makes the copy current");
  copy->add_option("NEW", o.nouveau)->required();
  copy->callback([&] { action = [&] { return GereTable(c, 1, o.nom, o.nouveau); }; });
  CLI::App* rename = ajoute("rename", "Renames a table and makes it current");
  rename->add_option("NEW", o.nouveau)->required();
  rename->callback([&] { action = [&] { return GereTable(c, 2, o.nom, o.nouveau); }; });
  ajoute("delete", "Deletes a table (question lib002)")->callback([&] {
    action = [&] { return GereTable(c, 3, o.nom, ""); };
  });
  CLI::App* preset = ajoute("preset", "Sets the outputs of a known interface");
  preset->add_option("INTERFACE", o.interface)->required();
  preset->callback([&] { action = [&] { return InterfaceTable(c, o.nom, o.interface); }; });
}

void CommandesDialectes(CLI::App& app, Contexte& c, Options& o, Action& action) {
  CLI::App* dialects = Commande(app, "dialects", "Dialects of G-code: list, show");
  dialects->require_subcommand(0, 1);
  dialects->callback([&, dialects] {
    if (dialects->get_subcommands().empty()) action = [&] { return ListeDialectes(c); };
  });
  Commande(*dialects, "list", "Name, title and extension of each")->callback([&] {
    action = [&] { return ListeDialectes(c); };
  });
  CLI::App* show = Commande(*dialects, "show", "One of them as a file that a user can change");
  show->add_option("NAME", o.nom)->required();
  show->callback([&] { action = [&] { return MontreDialecte(c, o.nom); }; });
}

void CommandesMateriaux(CLI::App& app, Contexte& c, Options& o, Action& action) {
  CLI::App* materials = Commande(app, "materials", "Material presets: list, set, delete");
  materials->require_subcommand(0, 1);
  materials->callback([&, materials] {
    if (materials->get_subcommands().empty()) action = [&] { return ListeMateriaux(c); };
  });
  Commande(*materials, "list", "All rows")->callback([&] { action = [&] { return ListeMateriaux(c); }; });
  CLI::App* set = Commande(*materials, "set", "Changes a row, or adds one with a new name");
  set->add_option("NAME", o.champs[0])->required();
  const char* const noms[] = {"--radius", "--tool",   "--depth",       "--pass",
                              "--feed-h", "--feed-v", "--notch-width", "--notch-height"};
  const char* const quoi[] = {
      "Tool radius, mm",       "Name of the tool",    "Total depth, mm, negative", "Depth of a pass, mm, negative",
      "Horizontal feed, mm/s", "Vertical feed, mm/s", "Notch width, mm",           "Least notch height, mm"};
  for (std::size_t i = 0; i < 8; ++i) set->add_option(noms[i], o.champs[i + 1], quoi[i]);
  set->callback([&] { action = [&] { return PoseMateriau(c, o.champs); }; });
  CLI::App* efface = Commande(*materials, "delete", "Deletes a row");
  efface->add_option("NAME", o.nom)->required();
  efface->callback([&] { action = [&] { return EffaceMateriau(c, o.nom); }; });
}

void CommandesReprise(CLI::App& app, Contexte& c, Options& o, Action& action) {
  CLI::App* recover = Commande(app, "recover", "Work that a program left which died: list, open");
  recover->require_subcommand(0, 1);
  recover->callback([&, recover] {
    if (recover->get_subcommands().empty()) action = [&] { return ListeReprises(c); };
  });
  Commande(*recover, "list", "Number, time and drawing")->callback([&] {
    action = [&] { return ListeReprises(c); };
  });
  CLI::App* open = Commande(*recover, "open", "Writes one as a project; it then waits no more");
  open->add_option("N", o.rang, "Number of the list")->required();
  Sortie(open, o, "OUT.OVL");
  open->callback([&] { action = [&] { return OuvreReprise(c, o.rang, o.sortie); }; });
}

void OptionsCarte(CLI::App* commande, Contexte& c) {
  commande->add_option("--wire", c.fil, "Every exchange as two lines of a file")->type_name("LOG");
  commande->add_option("--board-file", c.fichierCarte, "File of the virtual board")->type_name("FILE");
  commande->add_option("--fault", c.fautes, "A fault of the virtual board: " + ListeFautes() + ":SECONDS")
      ->type_name("N:KIND")
      ->allow_extra_args(false)
      ->check([](const std::string& texte) {
        return zenikcom::LitFaute(texte) ? std::string() : texte + ": N:KIND, " + ListeFautes() + ":SECONDS";
      });
  commande->add_flag("--fast", c.rapide, "The virtual board as fast as it can");
  commande->add_option("--path", c.parcours, "The path that the virtual board's machine has walked")
      ->type_name("OUT.svg|OUT.csv");
  commande
      ->add_option("--model", c.modeles,
                   "The machine of the virtual board: free speed and ramp (steps/s, steps/s2), play (steps)")
      ->type_name("AXIS:FREE[:RAMP[:PLAY]]")
      ->allow_extra_args(false)
      ->check([](const std::string& texte) {
        return ovelin::LitModeleAxe(texte) ? std::string() : texte + ": AXIS:FREE[:RAMP[:PLAY]]";
      });
  commande
      ->add_option("--hand", c.gestes, "What a hand does at the virtual board: " + std::string(ovelin::NomsGestes))
      ->type_name("N:WHAT")
      ->allow_extra_args(false)
      ->check([](const std::string& texte) {
        return ovelin::LitGeste(texte) ? std::string() : texte + ": N:WHAT, " + std::string(ovelin::NomsGestes);
      });
}

void CommandesGcode(CLI::App& app, Contexte& c, Options& o, Action& action) {
  CLI::App* check = Commande(app, "check", "Judges every line of a G-code file and measures it");
  check->add_option("FILE", o.dessin, "G-code file")->required();
  check->callback([&] {
    c.informe = true;
    action = [&] { return Verifie(c, o.dessin); };
  });
  CLI::App* mill = AvecDessin(app, "mill", "The job on the board", o);
  mill->add_option("--mode", o.fraisage.mode, "Straight to the board, into its memory, or both")
      ->check(CLI::IsMember({"usb", "flash", "both"}));
  mill->add_option("--stop-at-record", o.fraisage.arretAuRecord, "Stops once the board has begun this record")
      ->check(CLI::PositiveNumber)
      ->type_name("N");
  mill->add_option("--stop", o.fraisage.arret, "How it stops there")->check(CLI::IsMember({"ramp", "now"}));
  mill->add_flag("--resume", o.fraisage.reprend, "Goes on behind that stop");
  mill->add_option("--speed-at", o.fraisage.vitesseA, "From record N on at V mm/s")->type_name("N:V");
  OptionsCarte(mill, c);
  mill->callback([&] { action = [&] { return Fraise(c, o.dessin, o.fraisage); }; });

  CLI::App* play = Commande(app, "play", "Runs a G-code file on the board");
  play->add_option("FILE", o.dessin, "G-code file")->required();
  OptionsCarte(play, c);
  play->callback([&] { action = [&] { return JoueProgramme(c, o.dessin); }; });
}

void CommandesTablesCarte(CLI::App& board, Contexte& c, Options& o, Action& action) {
  CLI::App* tables = Commande(board, "tables", "Tables on the board: list, check, write, default");
  tables->require_subcommand(0, 1);
  tables->callback([&, tables] {
    if (tables->get_subcommands().empty()) action = [&] { return TablesDeCarte(c); };
  });
  Commande(*tables, "list", "Names of the four tables, and the default")->callback([&] {
    action = [&] { return TablesDeCarte(c); };
  });
  Commande(*tables, "check", "The table in force is the board's; questions 2 and F_ChangtTable")->callback([&] {
    action = [&] { return VerifieTableDeCarte(c); };
  });
  const auto ajoute = [&](const char* nom, const char* quoi) {
    CLI::App* geste = Commande(*tables, nom, quoi);
    geste->add_option("SLOT", o.numero, "0 to 3")->required()->check(CLI::Range(0, 3));
    return geste;
  };
  ajoute("write", "Writes the table in force into a slot")->callback([&] {
    action = [&] { return EcritTableDeCarte(c, o.numero); };
  });
  ajoute("default", "Makes a slot the default")->callback([&] {
    action = [&] { return DefautDeCarte(c, o.numero); };
  });
}

void CommandesCarte(CLI::App& app, Contexte& c, Options& o, Action& action) {
  CLI::App* board = Commande(app, "board", "The board: status, list, udev, path, tables, read, flash, wire");
  board->require_subcommand(1);
  OptionsCarte(board, c);
  Commande(*board, "status", "Which board, its version and what it does")->callback([&] {
    action = [&] { return EtatCarte(c); };
  });
  Commande(*board, "list", "HID devices of this machine")->callback([&] {
    action = [&] { return ListeAppareils(c); };
  });
  Commande(*board, "udev", "The rule that lets the user open the board of CarteZENIK_USB")->callback([&] {
    action = [&] { return RegleUdev(c); };
  });
  Commande(*board, "path", "Runs the stored job of the virtual board: steps, true place, lost steps")
      ->callback([&] { action = [&] { return ParcoursDeCarte(c); }; });
  CommandesTablesCarte(*board, c, o, action);
  CLI::App* read = Commande(*board, "read", "Bytes of the flash memory");
  read->add_option("--block", o.plage.bloc, "0 to 31")->check(CLI::Range(0, 31));
  read->add_option("--address", o.plage.adresse, "0 to 65535")->check(CLI::Range(0, 65'535));
  read->add_option("--length", o.plage.taille, "Bytes")->check(CLI::Range(1, 32 * 65'536));
  read->add_option("-o,--output", o.sortie, "File to write")->type_name("OUT.bin");
  read->callback([&] { action = [&] { return LitFlash(c, o.plage, o.sortie); }; });
  CLI::App* flash = Commande(*board, "flash", "Stores a job of plan --flash in the flash memory");
  flash->add_option("FILE", o.dessin, "List of records")->required();
  flash->callback([&] { action = [&] { return EcritFlash(c, o.dessin); }; });
  CLI::App* wire = Commande(*board, "wire", "One exchange, byte by byte");
  wire->add_option("LETTER BYTES", o.octets, "Letter, then bytes 2 on: 0 to 255 or 0x00 to 0xFF")->required();
  wire->callback([&] { action = [&] { return EchangeCarte(c, o.octets); }; });
}

int Execute(int argc, char** argv) {
  CLI::App app{"OVELIN: from a drawing to the moves of a small router", "ovelin-cli"};
  app.set_version_flag("--version", std::to_string(OVELIN_VERSION_MAJEURE) + "." +
                                        std::to_string(OVELIN_VERSION_MINEURE) + "." +
                                        std::to_string(OVELIN_VERSION_REVISION));
  app.require_subcommand(1);
  Contexte contexte;
  Options options;
  Action action;
  OptionsCommunes(app, contexte);
  CommandesDessin(app, contexte, options, action);
  CommandesGcode(app, contexte, options, action);
  CommandesCles(app, contexte, options, action);
  CommandesTables(app, contexte, options, action);
  CommandesMateriaux(app, contexte, options, action);
  CommandesDialectes(app, contexte, options, action);
  CommandesReprise(app, contexte, options, action);
  CommandesCarte(app, contexte, options, action);
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& erreur) {
    return app.exit(erreur) == 0 ? Fait : Usage;
  }
  if (const int depart = Demarre(contexte)) return depart;
  return action();
}

}  // namespace

int main(int argc, char** argv) {
  try {
    return Execute(argc, argv);
  } catch (const std::bad_alloc&) {
    std::fputs("out of memory\n", stderr);
  } catch (const std::exception& erreur) {
    std::fprintf(stderr, "%s\n", erreur.what());
  }
  return Refuse;
}
