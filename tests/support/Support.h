// What every test program shares: a fresh state before each test, scripted services, small builders.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "core/Document.h"
#include "core/Services.h"
#include "core/Traduction.h"
#include "tests/support/Corpus.h"  // DossierCorpus, DossierExemples

namespace essai {

// Expected boxes in order. A box that the script doesn't hold fails the test by its key; boxes left over at the end
// of a test fail it too. A fresh script is installed before each test.
void Attend(const std::string& section, const std::string& cle, ovelin::Reponse reponse = ovelin::Reponse::Ok);
// A box without a key, by its text.
void AttendTexte(const std::string& texte, ovelin::Reponse reponse = ovelin::Reponse::Ok);
// Answers of file dialogs and prompts, in order, by the dialog's key.
void AttendFichier(const std::string& cle, const std::string& reponse);
void AttendSaisie(const std::string& cle, const std::string& reponse);
// A window that a procedure opens by its name, with what the user chooses in it; nothing: left without OK.
void AttendFenetre(const std::string& nom, std::optional<int> choix);
// A file or an address that is opened by the desktop.
void AttendBureau(const std::string& cible, ovelin::IssueBureau issue = ovelin::IssueBureau::Ouvert);
// Key of the text of a refusal, "" for none.
std::string CleDe(const std::optional<ovelin::CleTexte>& refus);
// Boxes shown so far in this test.
const std::vector<ovelin::BoiteMessage>& Boites();
int Bips();
// Texts shown in status panels so far: (panel, text).
const std::vector<std::pair<int, std::string>>& Panneaux();

// What windows have been told of a machine that moves, in order; none of it is answered.
struct VuMachine {
  std::vector<bool> veilles;                     // screen saver and sleep held back, given back
  std::vector<bool> stops;                       // the stop control shown, hidden
  std::vector<bool> runs;                        // of a job: begun, ended
  std::vector<std::array<double, 2>> marques;    // of the tool in the picture, mm
  std::vector<std::array<double, 3>> positions;  // in the manual window, mm
  std::vector<std::array<float, 4>> lignes;      // of the run; emptied when it is effaced
  std::vector<ovelin::DemandePilotage> pilotage;
  std::vector<bool> interro;        // the idle look at the board off, on
  std::function<void()> battement;  // what goes on in the loop of a box; a script may call it
};
const VuMachine& Vu();

// A folder of this test alone, empty, removed behind it. DossierProgramme and DossierTemp point into it.
const std::string& Dossier();
std::string EcritFichierEssai(const std::string& nom, const std::string& octets);
std::string LitFichierEssai(const std::string& chemin);

// A path as points: {x, y} pairs with that code. Records in Sequences as a reading gives them.
std::vector<ovelin::PointTrace> Trace(const std::string& code, const std::vector<std::pair<float, float>>& xy);
void AjouteSequence(const std::string& code, const std::vector<std::pair<float, float>>& xy,
                    std::int16_t decalage = 1, double profondeur = -3);
// Closed square with its corner at (x, y), clockwise.
void AjouteCarre(const std::string& code, float x, float y, float cote, std::int16_t decalage = 1,
                 double profondeur = -3);

// All tests of the program, each on a fresh state with a fresh script.
int Lance(int argc, char** argv);

}  // namespace essai
