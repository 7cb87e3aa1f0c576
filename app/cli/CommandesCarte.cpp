// The commands that speak to a board: status, tables, flash memory, one exchange; and the devices of this machine.
#include "app/cli/CommandesCarte.h"

#include <array>
#include <charconv>
#include <cstdio>
#include <functional>
#include <optional>

#include "app/cli/CarteAppel.h"
#include "app/cli/Signaux.h"
#include "base/Indices.h"
#include "base/Texte.h"
#include "controller/ChoixCarte.h"
#include "controller/ClsCdeZENIK.h"
#include "controller/ListeStockee.h"
#include "controller/OperateurCarte.h"
#include "core/ClesReglages.h"
#include "core/Fichiers.h"
#include "core/Nombres.h"
#include "core/ReglagesCourants.h"
#include "core/Texte8.h"
#include "core/Textes.h"

namespace ovelin::cli {

namespace {

constexpr std::size_t OctetsPage = 32, OctetsBloc = 65'536, NbBlocs = 32;

std::string Hexadecimal(std::span<const std::uint8_t> octets) {
  std::string texte;
  char deux[4];
  for (const std::uint8_t octet : octets) {
    std::snprintf(deux, sizeof deux, "%02X", octet);
    texte += (texte.empty() ? "" : " ") + std::string(deux);
  }
  return texte;
}

// A command with the board of this call around it. The answer is given once everything has reached the disk, so
// that there is one of them.
int AvecCarte(Contexte& contexte, const std::function<int(Json&)>& commande,
              std::initializer_list<std::string> entrees = {}) {
  CarteAppel carte(contexte);
  if (const int etat = carte.Ouvre(entrees)) return etat;
  Json objet;
  if (const int etat = carte.Ferme(commande(objet))) return etat;
  return objet.is_null() ? Fait : Resultat(contexte, objet);
}

int SansReponse(const Contexte& contexte) { return Echec(contexte, Textes::CarteSansReponse, ""); }

const char* NomGenre(GenreCarte genre) {
  switch (genre) {
    case GenreCarte::Usb:
      return "usb";
    case GenreCarte::Bibliotheque:
      return "library";
    case GenreCarte::Virtuelle:
      return "virtual";
    default:
      return "none";
  }
}

std::int64_t Entier(std::span<const std::uint8_t> octets) {
  std::int64_t valeur = 0;
  for (std::size_t i = octets.size(); i-- > 0;) valeur = valeur * 256 + octets[i];
  return valeur;
}

// One letter without arguments; the answer stands in the buffer.
bool Echange(char lettre) {
  CdeZENIK->Tampon[1] = base::Octet(lettre);
  CdeZENIK->Tampon[2] = 0;
  std::int32_t mode = 0;
  return CdeZENIK->EnvoiCommande(mode);
}

std::string TexteReponse() {
  std::string octets;
  for (std::size_t i = 2; i < CdeZENIK->Tampon.size() && CdeZENIK->Tampon[i] != 0; ++i) {
    octets += static_cast<char>(CdeZENIK->Tampon[i]);
  }
  return DeWindows1252(octets);
}

// What byte 12 says, in words.
const char* EtatEnMots(std::uint8_t octet12) {
  if ((octet12 & 0x80U) != 0 && octet12 != 162) return "ended";
  if ((octet12 & 0x42U) == 0x42U) return "stopped";
  return octet12 == 0 ? "running" : "rest";
}

// What can be seen of a virtual board beside its answers: what its outputs do, and its display.
void MontreCarte(Json& objet) {
  const auto vue = RegardeCarte();
  if (!vue) return;
  const zenikcom::SortiesCarte& s = vue->sorties;
  objet["outputs"] = {{"motors", s.moteur}, {"auxiliary", s.auxiliaire}, {"spindle", s.broche}, {"value", s.pwm}};
  objet["display"] = Json{{"on", vue->ecran.allume}, {"lines", Json::array()}};
  for (const std::string& ligne : vue->ecran.lignes) objet["display"]["lines"].push_back(DeWindows1252(ligne));
}

// A byte, decimal or "0x1F"; nothing for any other text.
std::optional<std::uint8_t> LitOctet(std::string_view texte) {
  const bool hexa = texte.starts_with("0x") || texte.starts_with("0X");
  if (hexa) texte.remove_prefix(2);
  std::uint8_t octet = 0;
  const auto [fin, erreur] = std::from_chars(texte.data(), texte.data() + texte.size(), octet, hexa ? 16 : 10);
  if (erreur != std::errc{} || fin != texte.data() + texte.size()) return std::nullopt;
  return octet;
}

}  // namespace

int EtatCarte(Contexte& contexte) {
  return AvecCarte(contexte, [&](Json& objet) {
    ClsCdeZENIK& cde = *CdeZENIK;
    objet["board"] = NomGenre(LaCarte.genre);
    if (!Echange('V')) return SansReponse(contexte);
    objet["version"] = TexteReponse();
    objet["flash"] = cde.Flash_Model() ? cde.FlashModel() : "";
    objet["table"] = cde.TableDefautLire();
    if (!Echange('I') || cde.EchangePerdu()) return SansReponse(contexte);
    const std::span<const std::uint8_t> t(cde.Tampon);
    objet["state"] = EtatEnMots(t[12]);
    objet["record"] = Entier(t.subspan(4, 3));
    objet["ticks_left"] = static_cast<std::int32_t>(Entier(t.subspan(13, 4)));
    objet["spindle"] = (t[7] & 16U) != 0;
    objet["limit_switch"] = (t[8] & 2U) != 0;
    objet["origin_switch"] = (t[8] & 4U) != 0;
    objet["keys"] = t[11];
    MontreCarte(objet);
    return Fait;
  });
}

int ListeAppareils(Contexte& contexte) {
  Json liste = Json::array();
  for (const zenikcom::AppareilUsb& a : zenikcom::AppareilsUsb()) {
    char identite[16];
    std::snprintf(identite, sizeof identite, "%04X:%04X", a.identite.vendeur, a.identite.produit);
    liste.push_back({{"id", identite},
                     {"manufacturer", a.fabricant},
                     {"name", a.nom},
                     {"serial", a.serie},
                     {"path", a.chemin}});
    if (!contexte.json) {
      std::printf("%s\t%s\t%s\t%s\t%s\n", identite, a.fabricant.c_str(), a.nom.c_str(), a.serie.c_str(),
                  a.chemin.c_str());
    }
  }
  return contexte.json ? Resultat(contexte, Json{{"devices", liste}}) : Fait;
}

int RegleUdev(Contexte& contexte) {
  const ReglageCarte reglage = LitReglageCarte();
  const auto identite = zenikcom::LitIdentiteUsb(Rogne(reglage.usb));
  if (!identite) {
    const RefusCarte refus{Textes::CarteIdentite, cles::CarteZENIK_USB, reglage.usb, ""};
    return Echec(contexte, refus.texte.Cle(), TexteRefus(refus));
  }
  const std::string regle = zenikcom::RegleUdev(*identite);
  if (contexte.json) {
    return Resultat(contexte, Json{{"file", zenikcom::NomRegleUdev}, {"rule", regle}});
  }
  std::fputs(regle.c_str(), stdout);
  return Fait;
}

int TablesDeCarte(Contexte& contexte) {
  return AvecCarte(contexte, [&](Json& objet) {
    const int defaut = CdeZENIK->TableDefautLire();
    std::vector<std::string> noms;
    for (std::uint8_t n = 0; n < 4; ++n) noms.push_back(Rogne(CdeZENIK->TableLectureNom(n)));
    if (CdeZENIK->EchangePerdu()) return SansReponse(contexte);
    for (std::string& nom : noms) {
      if (nom.find_first_not_of("\u00FF ") == std::string::npos) nom.clear();
    }
    objet["default"] = defaut;
    objet["tables"] = noms;
    return Fait;
  });
}

int VerifieTableDeCarte(Contexte& contexte) {
  return AvecCarte(contexte, [&](Json& objet) {
    contexte.derniere = {};
    if (!CdeZENIK->TableVerif()) return CdeZENIK->EchangePerdu() ? SansReponse(contexte) : EchecBoite(contexte);
    objet["table"] = TableDefaut;
    objet["slot"] = CdeZENIK->TableRecherche(TableDefaut);
    objet["default"] = CdeZENIK->TableDefautLire();
    return CdeZENIK->EchangePerdu() ? SansReponse(contexte) : Fait;
  });
}

int EcritTableDeCarte(Contexte& contexte, int numero) {
  return AvecCarte(contexte, [&](Json& objet) {
    if (!EnWindows1252(TableDefaut)) return Echec(contexte, Textes::NomTableHorsJeu, " " + TableDefaut);
    CdeZENIK->TableEcrire(TableDefaut, static_cast<std::uint8_t>(numero));
    if (CdeZENIK->EchangePerdu()) return SansReponse(contexte);
    objet["table"] = TableDefaut;
    objet["slot"] = numero;
    return Fait;
  });
}

int DefautDeCarte(Contexte& contexte, int numero) {
  return AvecCarte(contexte, [&](Json& objet) {
    CdeZENIK->TableDefautEcrire(static_cast<std::uint8_t>(numero));
    objet["default"] = CdeZENIK->TableDefautLire();
    return CdeZENIK->EchangePerdu() ? SansReponse(contexte) : Fait;
  });
}

int ParcoursDeCarte(Contexte& contexte) {
  return AvecCarte(contexte, [&](Json& objet) {
    if (!LaCarte.virtuelle) {
      return Echec(contexte, Textes::OptionVirtuelle,
                   " path " + std::string(cles::CarteZENIK) + "=" + LitReglageCarte().carte);
    }
    if (!CdeZENIK->EnvoiFLASH(0, 0) || !CdeZENIK->GoBuffer()) return SansReponse(contexte);
    constexpr double pause = 0.01;  // s between two looks at the board
    const EcouteSignaux signaux([] {});
    do {
      if (EcouteSignaux::Venu()) CdeZENIK->StopResume(0, 0);
      if (!contexte.rapide) Svc.Attend(pause);
      CdeZENIK->DemandeInformation();
    } while (CdeZENIK->EnCours != Faux && CdeZENIK->IsAvailable() && !EcouteSignaux::Venu());
    const zenikcom::CompteursCarte c = LaCarte.virtuelle->Compteurs();
    const auto enJson = [](const zenikcom::Axes3& a) { return Json{{"x", a[0]}, {"y", a[1]}, {"z", a[2]}}; };
    objet["records"] = c.commences;
    objet["points"] = LaCarte.virtuelle->Parcours().size();
    objet["steps"] = enJson(c.pas);
    objet["place"] = enJson(LaCarte.virtuelle->Lieu());
    objet["lost"] = enJson(c.pasPerdus);
    MontreCarte(objet);
    return EcouteSignaux::Venu() ? FinParSignal : CdeZENIK->IsAvailable() ? Fait : SansReponse(contexte);
  });
}

int LitFlash(Contexte& contexte, const PlageFlash& plage, const std::string& sortie) {
  if (!sortie.empty()) {
    if (const int etat = VerifieSortie(contexte, sortie, "", {contexte.fichierCarte, contexte.fil})) return etat;
  }
  const std::size_t debut = base::Indice(plage.bloc) * OctetsBloc + base::Indice(plage.adresse);
  const std::size_t taille = std::min(base::Indice(plage.taille), NbBlocs * OctetsBloc - debut);
  return AvecCarte(contexte, [&](Json& objet) {
    if (!CdeZENIK->Flash_Model()) return Echec(contexte, Textes::FlashAbsente, "");
    std::vector<std::uint8_t> octets;
    std::array<std::uint8_t, OctetsPage> page{};
    while (octets.size() < taille) {
      const std::size_t ici = debut + octets.size();
      const auto adresse = static_cast<std::uint16_t>(ici % OctetsBloc);
      if (!CdeZENIK->Flash_Read(static_cast<std::uint8_t>(ici / OctetsBloc), adresse, page)) {
        return SansReponse(contexte);
      }
      const std::size_t lus = std::min({OctetsPage, taille - octets.size(), OctetsBloc - adresse});
      octets.insert(octets.end(), page.begin(), base::Iterateur(page, lus));
    }
    objet["block"] = plage.bloc;
    objet["address"] = plage.adresse;
    objet["length"] = octets.size();
    if (sortie.empty()) {
      objet["bytes"] = Hexadecimal(octets);
      return Fait;
    }
    objet["file"] = sortie;
    return EcritResultat(contexte, sortie, std::string(octets.begin(), octets.end()));
  });
}

int EcritFlash(Contexte& contexte, const std::string& fichier) {
  ErreurSysteme raison;
  const auto contenu = LitFichierEntier(fichier, &raison);
  if (!contenu) return Echec(contexte, Textes::LectureRefusee, "\n" + fichier + ": " + raison, fichier);
  const std::vector<std::uint8_t> octets(contenu->begin(), contenu->end());
  const BilanListe bilan = LitListe(octets);
  if (!bilan.finie) return Echec(contexte, Textes::ListeSansFin, " " + fichier, fichier);
  if (octets.size() > ListeMaxi) {
    return Echec(contexte, Textes::ListeTropLongue, " " + std::to_string(bilan.tiennent), fichier);
  }
  return AvecCarte(contexte,
                   [&](Json& objet) {
                     if (!CdeZENIK->Flash_Model()) return Echec(contexte, Textes::FlashAbsente, "");
                     CdeZENIK->Flash_Tab(octets);
                     const std::int32_t perdues = CdeZENIK->PagesNonConfirmees;
                     if (perdues != 0)
                       return Echec(contexte, Textes::FlashNonConfirmee, " " + std::to_string(perdues));
                     objet["bytes"] = octets.size();
                     objet["pages"] = octets.size() / OctetsPage + 1;
                     objet["records"] = bilan.records;
                     return Fait;
                   },
                   {fichier});
}

int EchangeCarte(Contexte& contexte, const std::vector<std::string>& octets) {
  zenikcom::TamponOctets requete{};
  bool juste = !octets.empty() && octets[0].size() == 1 && octets.size() < requete.size();
  if (juste) requete[1] = base::Octet(octets[0][0]);
  for (std::size_t i = 1; juste && i < octets.size(); ++i) {
    const auto octet = LitOctet(octets[i]);
    juste = octet.has_value();
    requete[i + 1] = octet.value_or(0);
  }
  if (!juste) {
    std::fprintf(stderr, "board wire LETTER [0-255 | 0x00-0xFF]...\n");
    return Usage;
  }
  return AvecCarte(contexte, [&](Json& objet) {
    CdeZENIK->Tampon = requete;
    std::int32_t mode = requete[1] == 'D' ? 1 : 0;
    if (!CdeZENIK->EnvoiCommande(mode)) return SansReponse(contexte);
    objet["request"] = Hexadecimal(requete);
    objet["reply"] = Hexadecimal(CdeZENIK->Tampon);
    MontreCarte(objet);
    return Fait;
  });
}

}  // namespace ovelin::cli
