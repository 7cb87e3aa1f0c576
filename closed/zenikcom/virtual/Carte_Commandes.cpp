// The commands, by their letters. Bytes that an answer does not name stay as the request had them.
#include <algorithm>
#include <array>
#include <string>

#include "base/Indices.h"
#include "closed/zenikcom/virtual/Carte.h"

namespace zenikcom {

namespace {

void Ecrit(TamponOctets& t, std::size_t i, std::size_t octets, std::uint64_t valeur) {
  for (std::size_t n = 0; n < octets; ++n) t[i + n] = static_cast<std::uint8_t>(valeur >> 8 * n & 0xFFU);
}

std::uint16_t Mot(const TamponOctets& t, std::size_t i) {
  return static_cast<std::uint16_t>(t[i] << 8U | t[i + 1]);
}

constexpr std::size_t LargeurEcran = 20;

}  // namespace

void Carte::Execute(TamponOctets& t) {
  const char lettre = static_cast<char>(t[1]);
  // A run of writes goes to the file once, when it is over.
  if (lettre != 'W' && lettre != 'E' && lettre != 'T') Enregistre();
  if (conditions_.rapide) LaisseFiler(t);
  switch (lettre) {
    case 'D':
      return RecordRecu(t);
    case 'I':
      return Etat(t, 0);
    case 'B':
      return Tampon(t);
    case 'S':
      return Stop(t);
    case 'P':
      return Puissance(t);
    case 'M':
      sorties_.moteur = t[2] != 0;
      return;
    case 'G':
      sorties_.auxiliaire = t[2] != 0;
      return;
    case 'L':
      return Affiche(t);
    case 'T':
      return Table(t);
    case 'F':
    case 'E':
    case 'W':
    case 'R':
      return Flash(t);
    case 'Y':
      return Programmation(t);
    case 'Z':
      if (t[2] == 85 && t[3] == 170) RemiseAZero();
      return;
    case 'V': {
      const std::size_t n = std::min(conditions_.version.size(), t.size() - 3);
      std::copy_n(conditions_.version.begin(), n, t.begin() + 2);
      t[2 + n] = 0;
      return;
    }
    default:
      t[1] = 0;  // a letter that it doesn't know isn't answered
  }
}

void Carte::LaisseFiler(const TamponOctets& t) {
  const bool attendPlace = t[1] == 'D' && travail_.Plein();
  const bool demandeEtat = t[1] == 'I' || (t[1] == 'S' && t[2] == 3);
  if (attendPlace || demandeEtat) ns_ = std::max(ns_, travail_.AvanceAuSuivant());
}

std::uint8_t Carte::EtatOctet12() const {
  switch (travail_.Etat()) {
    case EtatCarte::Repos:
      return 2;
    case EtatCarte::Fini:
      return 128;
    case EtatCarte::Arretee:
      return 66;
    default:
      return 0;
  }
}

void Carte::Etat(TamponOctets& t, std::uint8_t octet2) const {
  t[2] = octet2;
  t[3] = 0;
  Ecrit(t, 4, 3, static_cast<std::uint64_t>(travail_.Commences()));
  const bool arretee = travail_.Etat() == EtatCarte::Arretee;
  t[7] = static_cast<std::uint8_t>((travail_.EnCours() ? 1 : 0) | (arretee ? 2 : 0) | (sorties_.broche ? 16 : 0));
  t[8] = static_cast<std::uint8_t>((finDeCourse_ ? 2 : 0) | (origine_ ? 4 : 0));
  t[9] = analogiques_[0];
  t[10] = analogiques_[1];
  t[11] = touches_;
  t[12] = EtatOctet12();
  Ecrit(t, 13, 4, static_cast<std::uint32_t>(travail_.TicksRestants()));
}

// Answered, not done. The status in it is true all the same.
void Carte::Refuse(TamponOctets& t) const {
  if (t[1] == 'D' || t[1] == 'I') return Etat(t, 0);
  t[2] = 0;
}

void Carte::RecordRecu(TamponOctets& t) {
  Record record;
  bool pris = false;
  switch (LitRecord(std::span(t).subspan(2), record)) {
    case Lecture::Record:
      pris = travail_.Prend(record);
      break;
    case Lecture::Fin:
      pris = travail_.PrendFin();
      break;
    case Lecture::MalForme:
      ++malFormes_;
      break;
  }
  Etat(t, pris ? 1 : 0);
}

void Carte::Tampon(const TamponOctets& t) {
  switch (t[2]) {
    case 0:
      return travail_.Efface();
    case 1:
      return travail_.OuvreFlux();
    case 2:
      return travail_.OuvreListe(LecteurListe(memoire_, t[3], Mot(t, 4)));
    case 128:
      return travail_.Part(memoire_.CadencesDuDefaut());
    default:
      return;
  }
}

void Carte::Stop(TamponOctets& t) {
  if (t[2] == 0) travail_.Arrete();
  if (t[2] == 1) travail_.Freine(t[3]);
  const bool fini = travail_.Etat() == EtatCarte::Fini;
  t[2] = fini ? 130 : travail_.EnCours() ? 0 : 2;
  Ecrit(t, 3, 3, static_cast<std::uint64_t>(travail_.Commences()));
  Ecrit(t, 6, 4, static_cast<std::uint32_t>(travail_.TicksRestants()));
}

// Channel 0 switches off, channel 1 sets a value, channel 2 gives it back as four digits.
void Carte::Puissance(TamponOctets& t) {
  if (t[2] < 2) {
    sorties_.pwm = t[2] == 1 ? t[3] : std::uint8_t{0};
    sorties_.broche = sorties_.pwm != 0;
  } else if (t[2] == 2) {
    const std::string texte = std::to_string(10'000 + sorties_.pwm);
    std::copy_n(texte.begin() + 1, 4, t.begin() + 2);
  }
}

// Two lines, 0 and 1, of 20 characters; beyond them 2 is off, 3 on, 5 clear.
void Carte::Affiche(const TamponOctets& t) {
  if (t[2] == 2 || t[2] == 3) ecran_.allume = t[2] == 3;
  if (t[2] == 5) ecran_.lignes.fill("");
  if (t[2] > 1 || t[3] >= LargeurEcran) return;
  std::string& ligne = ecran_.lignes[t[2]];
  const std::size_t n = std::min<std::size_t>(t[4], LargeurEcran - t[3]);
  if (ligne.size() < t[3] + n) ligne.resize(t[3] + n, ' ');
  for (std::size_t i = 0; i < n; ++i) ligne[t[3] + i] = static_cast<char>(t[5 + i]);
}

void Carte::Table(TamponOctets& t) {
  if (t[2] == 0) {
    t[3] = memoire_.defaut;
    return;
  }
  if (t[3] >= NbTables) return;
  if (t[2] == 1) {
    change_ = change_ || memoire_.defaut != t[3];
    memoire_.defaut = t[3];
  }
  if (t[2] < 3 || t[2] > 8) return;
  Memoire::Partie& partie = memoire_.tables[t[3]][base::Indice(t[2] - 3) / 2];
  if (t[2] % 2 != 0) {
    std::copy(partie.begin(), partie.end(), t.begin() + 4);
  } else if (!std::equal(partie.begin(), partie.end(), t.begin() + 4)) {
    std::copy_n(t.begin() + 4, partie.size(), partie.begin());
    change_ = true;
  }
}

void Carte::Flash(TamponOctets& t) {
  static constexpr std::array<std::uint8_t, 4> Modele{1, 32, 21, 2};
  const std::uint8_t bloc = t[2];
  const std::size_t adresse = Mot(t, 3);
  switch (t[1]) {
    case 'F':
      for (std::size_t i = 0; i < 4; ++i) t[2 + i] = conditions_.flash ? Modele[i] : 255;
      return;
    case 'E':
      if (!conditions_.flash) return;
      memoire_.EffaceBloc(bloc);
      change_ = true;
      return;
    case 'W': {
      const bool ecrit = conditions_.flash && memoire_.EcritPage(bloc, adresse, std::span(t).subspan(5));
      change_ = change_ || conditions_.flash;
      t[2] = ecrit ? 255 : 0;
      return;
    }
    default:
      for (std::size_t i = 0; i < OctetsPage; ++i) {
        t[5 + i] = conditions_.flash ? memoire_.Octet(bloc, (adresse + i) % OctetsBloc) : 255;
      }
  }
}

void Carte::Programmation(TamponOctets& t) {
  if (!conditions_.pic) {
    t[1] = 0;
    return;
  }
  switch (t[2]) {
    case 0:
      return programmateur_.Entre();
    case 1:
      return programmateur_.Sort();
    case 2: {
      const std::uint16_t mot = programmateur_.CommandeLit(t[3]);
      t[2] = static_cast<std::uint8_t>(mot >> 8U);
      t[3] = static_cast<std::uint8_t>(mot & 0xFFU);
      return;
    }
    case 3:
      return programmateur_.Commande(t[3]);
    case 4:
      return programmateur_.CommandeAvecMot(t[3], Mot(t, 4));
    default:
      return;
  }
}

// As after switching on; what lasts stays, and so does the machine's place.
void Carte::RemiseAZero() {
  travail_.Efface();
  sorties_ = {};
  ecran_ = {};
  programmateur_.Sort();
}

}  // namespace zenikcom
