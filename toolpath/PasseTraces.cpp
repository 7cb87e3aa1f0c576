// The change in force, its pass, and the way back.
#include "toolpath/PasseTraces.h"

#include <atomic>
#include <unordered_set>
#include <utility>

#include "base/Arret.h"
#include "core/Cles.h"
#include "core/DocumentCourant.h"
#include "core/Etat.h"
#include "core/ReglagesCourants.h"
#include "core/ServicesPasse.h"
#include "core/Textes.h"
#include "toolpath/CalculDecalage.h"
#include "toolpath/Deroulement.h"
#include "toolpath/Module_Sequence.h"
#include "toolpath/traces/NoyauPasse.h"

namespace ovelin {

// What the traces of a pass are due for, in the order in which it has come.
struct PasseTraces::Dues {
  bool toutes = false;
  std::vector<Code2> codes;   // where `toutes`, behind all
  std::vector<Code2> partis;  // no longer in the drawing

  [[nodiscard]] bool Vide() const { return codes.empty() && partis.empty() && !toutes; }
  void Ajoute(const Dues& autres) {
    partis.insert(partis.end(), autres.partis.begin(), autres.partis.end());
    if (autres.toutes) {
      toutes = true;
      codes.clear();
    }
    std::unordered_set<std::uint32_t> presents;
    for (const Code2 code : codes) presents.insert(code.Cle());
    for (const Code2 code : autres.codes) {
      if (presents.insert(code.Cle()).second) codes.push_back(code);
    }
  }
  [[nodiscard]] std::size_t Poids() const { return PoidsTraces(Doc, toutes ? ListeCodes() : codes); }
};

namespace {

// What of the tool the traces depend on, as the fields of the tool leave it in force and in the files.
struct Outil {
  double rayon = RayonFraise;
  double encoche = LargeurEncoche;
  std::int16_t recouvrement = PCPoche;
  std::unique_ptr<RetourCles> cles = std::make_unique<RetourCles>(ClesOutilEtOptions());

  void Remet() const {
    RayonFraise = rayon;
    LargeurEncoche = encoche;
    PCPoche = recouvrement;
    cles->Remet();
  }
};

// The document in force without its traces, which stay where they are.
Document CopieSansTraces() {
  std::vector<SequenceDecalee> traces = std::exchange(TraceDecale, {});
  struct Rend {
    std::vector<SequenceDecalee>& traces;
    ~Rend() { TraceDecale = std::move(traces); }
  } const rend{traces};
  return Doc;
}

}  // namespace

struct PasseTraces::Avant {
  Document document;
  Outil outil;
  std::function<void()> reprend;
  Entretemps entretemps = Entretemps::Suite;
  bool rendu = false;

  void Rend() {
    if (std::exchange(rendu, true)) return;
    Doc = std::move(document);
    if (entretemps == Entretemps::Suite) outil.Remet();
    if (reprend) reprend();
  }
};

// A pass at work, from its first kernel to its last: drawing and tool come back with the traces where it is left on
// any way but the good one, want of memory included. Its own thread sees none of this.
class PasseTraces::Ouvrage : base::SansCopie {
 public:
  Ouvrage(Avant& avant, Dues dues)
      : avant_(avant), dues_(std::move(dues)), traces_(std::exchange(TraceDecale, {})) {
    Courant = this;
  }
  ~Ouvrage() {
    Courant = nullptr;
    if (tenu_) return;
    if (avant_.entretemps != Entretemps::Ouverture) avant_.document.TraceDecale = std::move(traces_);
    avant_.Rend();
  }

  // A change that has come since the kernel at work began.
  void Recoit(const Dues& dues) {
    venues_.Ajoute(dues);
    autre_ = true;
    arret_.Demande();
  }

  // Until a kernel comes to its end undisturbed. False: the user has taken the change back.
  bool Mene() {
    for (;;) {
      const TravailTraces travail{CopieSansTraces(), dues_.toutes, dues_.codes,
                                  ParametresTraceDe(Regl, Prolongement != Faux)};
      IssueTraces issue;
      if (!Lance(travail, issue)) return false;
      const Dues venues = std::exchange(venues_, {});
      const bool meme = MemeSource(travail.document, Doc);
      if (issue.entiere && venues.Vide() && meme) {
        Tient(std::move(issue));
        if (autre_) Modifie = Vrai;  // whose own command has left the end to this one
        return true;
      }
      // A drawing that somebody has changed without a word is computed whole.
      if (venues.Vide() && !meme) dues_.Ajoute({true, {}, {}});
      dues_.Ajoute(venues);
    }
  }

  static inline Ouvrage* Courant = nullptr;  // the one at work; null: none is

 private:
  // One kernel over its own copies, with the picture of what it computes for. False: taken back.
  bool Lance(const TravailTraces& travail, IssueTraces& issue) {
    arret_.Leve();
    EncombrementGeneral();
    SvcPasse.MontreSansTrajet();
    const bool ouverture = avant_.entretemps == Entretemps::Ouverture;
    Svc.AvancementDebut(Traduire(ouverture ? Textes::OuvertureQuiSAnnule : Textes::CalculQuiSAnnule),
                        std::ssize(travail.toutes ? ListeCodes() : travail.codes));
    std::atomic<long> commences{0};
    long montres = 0;
    const auto montre = [&] {
      for (const long n = commences.load(std::memory_order_relaxed); montres < n; ++montres) Svc.AvancementPlus();
    };
    struct Fin {
      ~Fin() { Svc.AvancementFin(); }
    } const fin;
    return !SvcPasse.Jusque(
        {[&] { issue = CalculePasse(travail, arret_, [&] { commences.fetch_add(1, std::memory_order_relaxed); }); },
         montre, [this] { arret_.Demande(); }, avant_.entretemps == Entretemps::Rien,
         avant_.entretemps != Entretemps::Suite});
  }

  void Tient(IssueTraces&& issue) {
    const bool reussie = issue.reussie;
    TraceDecale = std::move(traces_);
    tenu_ = true;
    OteTraces(TraceDecale, dues_.partis);
    PoseTraces(TraceDecale, std::move(issue));
    if (reussie) EffaceStatut();
  }

  Avant& avant_;
  Dues dues_;
  std::vector<SequenceDecalee> traces_;  // those of before, whole; of an opening none
  base::Arret arret_;
  Dues venues_;
  bool autre_ = false;  // one has come
  bool tenu_ = false;
};

PasseTraces::PasseTraces() : PasseTraces(nullptr) {}

PasseTraces::PasseTraces(std::function<void()> reprend, Entretemps entretemps) {
  if (!SvcPasse.Jusque || !SvcPasse.SePeut() || Ouvrage::Courant != nullptr) return;
  avant_ = std::make_unique<Avant>(Avant{CopieSansTraces(), {}, std::move(reprend), entretemps});
  if (entretemps == Entretemps::Ouverture) avant_->document.TraceDecale = std::exchange(TraceDecale, {});
}

PasseTraces::~PasseTraces() = default;

void PasseTraces::Reprend() {
  if (avant_) avant_->Rend();
}

bool PasseTraces::Confie(Dues&& dues, IssuePasse& issue) {
  if (Ouvrage::Courant != nullptr) {
    Ouvrage::Courant->Recoit(dues);
    issue = IssuePasse::Differee;
    return true;
  }
  if (!avant_ || dues.Poids() < SeuilPasse) return false;
  bool tenue = false;
  {
    Ouvrage ouvrage(*avant_, std::move(dues));
    tenue = ouvrage.Mene();
  }
  issue = tenue ? IssuePasse::EnVigueur : IssuePasse::Abandonnee;
  if (!tenue) SvcPasse.ChangementRepris();
  if (avant_->entretemps == Entretemps::Ouverture) avant_.reset();  // the drawing of before has gone, or is back
  return true;
}

IssuePasse PasseTraces::Suit(const std::vector<Code2>& codes, const std::vector<Code2>& partis) {
  IssuePasse issue = IssuePasse::EnVigueur;
  if (Confie({false, codes, partis}, issue)) return issue;
  OteTraces(TraceDecale, partis);
  if (!codes.empty()) RefaitDecalages(codes);
  return issue;
}

IssuePasse PasseTraces::SuitUn(Code2 code) {
  IssuePasse issue = IssuePasse::EnVigueur;
  if (!Confie({false, {code}, {}}, issue)) RefaitDecalage(code);
  return issue;
}

IssuePasse PasseTraces::SuitTout(const std::vector<Code2>& puis) {
  IssuePasse issue = IssuePasse::EnVigueur;
  if (Confie({true, puis, {}}, issue)) return issue;
  RecalculDecalages();
  if (!puis.empty()) RefaitDecalages(puis);
  return issue;
}

}  // namespace ovelin
