#include "toolpath/Module_Export.h"

#include <algorithm>
#include <vector>

#include "base/Texte.h"
#include "core/BoiteRefus.h"
#include "core/DocumentCourant.h"
#include "core/Fichiers.h"
#include "core/Nombres.h"
#include "core/Services.h"
#include "core/Textes.h"
#include "core/Traduction.h"
#include "toolpath/Deroulement.h"
#include "toolpath/Module_Sequence.h"
#include "toolpath/traces/Bibliotheque.h"

namespace ovelin {

namespace {

using Points = std::vector<PointTrace>;

bool Refuse(CleTexte texte) {
  Message(texte, Icone::Exclamation);
  return false;
}

// 260 bytes, padded with blanks. A cut never falls into a character.
std::string Commentaire(std::string texte) {
  if (texte.size() > pathwerk::LongueurMessage) {
    std::size_t n = pathwerk::LongueurMessage;
    while (n > 0 && (base::Octet(texte[n]) & 0xC0U) == 0x80U) --n;
    texte.resize(n);
  }
  texte.resize(pathwerk::LongueurMessage, ' ');
  return texte;
}

// False with the system's reason when the file could not be written.
bool Ecrit(const Points& points, const std::string& chemin, std::string& commentaire) {
  std::int32_t resultat = 0;
  Travaille([&] { resultat = Biblio.EcrireFichier(points, chemin, commentaire); });
  commentaire = Rogne(commentaire);
  if (resultat >= 0) return true;
  BoiteMessage boite = BoiteErreur(resultat);
  boite.texte += "\r\n" + commentaire;
  boite.fichier = chemin;
  Svc.Montre(boite);
  return false;
}

// All traces in one array. Neighbouring entries may hold the same text in `Seq`, which is only a number for the
// eye; here each gets a code of its own, so that the file keeps them apart.
Points TracesReunies() {
  Points points;
  Code2 code = CodeAucun;
  for (const SequenceDecalee& d : TraceDecale) {
    code = CodeSuivant(code == Code2(u'z', u'z') ? CodeAucun : code);
    for (const PointTrace& p : d.Points) points.push_back({p.X, p.Y, p.Cde, code});
  }
  return points;
}

bool EcritUnFichier(const std::string& chemin, const Points& points) {
  if (points.empty()) return Refuse(Textes::ExportVide);
  const auto parX = [](const PointTrace& a, const PointTrace& b) { return a.X < b.X; };
  const auto parY = [](const PointTrace& a, const PointTrace& b) { return a.Y < b.Y; };
  const auto [gauche, droite] = std::minmax_element(points.begin(), points.end(), parX);
  const auto [bas, haut] = std::minmax_element(points.begin(), points.end(), parY);
  std::string commentaire = Commentaire(NomDe(chemin) + " - X=" + Formate(Ecart(gauche->X, droite->X), "0.00") +
                                        " - Y=" + Formate(Ecart(bas->Y, haut->Y), "0.00"));
  if (!Ecrit(points, chemin, commentaire)) return false;
  MessageFichier(Textes::ExportEcrit, "\r\n" + commentaire, Icone::Information, "");
  return true;
}

// Numbered files are named here and not by the user: those that are there already are asked about, all at once.
bool PeutRemplacer(const std::string& chemin, long nombre) {
  long presents = 0;
  std::string premier;
  for (long numero = 1; numero <= nombre; ++numero) {
    const std::string un = CheminNumerote(chemin, numero);
    if (!FichierExiste(un)) continue;
    if (++presents == 1) premier = NomDe(un);
  }
  if (presents == 0) return true;
  BoiteMessage boite = BoiteDe(Textes::ExportRemplace, Icone::Exclamation, Boutons::OkAnnuler);
  boite.texte += "\r\n" + premier + (presents == 1 ? "" : " (" + std::to_string(presents) + ")");
  return Svc.Montre(boite) == Reponse::Ok;
}

bool EcritUnFichierParTrace(const std::string& chemin, int source) {
  std::vector<Points> traces;
  if (source == 0) {
    for (const Etendue& e : EtenduesSequences()) {
      traces.push_back(CopieDe(TraceInitial, e));
    }
  } else {
    for (const SequenceDecalee& d : TraceDecale) {
      if (!d.Points.empty()) traces.push_back(d.Points);
    }
  }
  if (traces.empty()) return Refuse(Textes::ExportVide);
  if (!PeutRemplacer(chemin, static_cast<long>(traces.size()))) return false;
  long numero = 0;
  {
    Avancement avancement(Traduire(Textes::ExportEnCours), std::ssize(traces));
    for (const Points& points : traces) {
      avancement.Plus();
      ++numero;
      std::string commentaire = Commentaire("#" + Formate(static_cast<double>(numero), "000"));
      if (!Ecrit(points, CheminNumerote(chemin, numero), commentaire)) return false;
    }
  }
  MessageFichier(Textes::ExportPremier,
                 " " + NomDe(CheminNumerote(chemin, 1)) + "\r\n" + Traduire(Textes::ExportDernier) + " " +
                     NomDe(CheminNumerote(chemin, numero)) + "\r\n" + Traduire(Textes::ExportTousEcrits),
                 Icone::Information, "");
  return true;
}

}  // namespace

std::string CheminNumerote(const std::string& chemin, long numero) {
  const std::string base = NomSansExtension(chemin);
  return base + Formate(static_cast<double>(numero), "000") + chemin.substr(base.size());
}

bool Exporte(const std::string& chemin, int source) {
  const std::string extension = ExtensionDe(chemin);
  if (extension != "DXF" && extension != "DAT") return Refuse(Textes::ExportExtension);
  // A DAT file holds one path. What counts is the tool path, also where the drawing is written.
  if (extension == "DAT" && TraceDecale.size() > 1) {
    if (Message(Textes::ExportUnParTrajet, Icone::Question, Boutons::OkAnnuler) != Reponse::Ok) return false;
    return EcritUnFichierParTrace(chemin, source);
  }
  return EcritUnFichier(chemin, source == 0 ? TraceInitial : TracesReunies());
}

}  // namespace ovelin
