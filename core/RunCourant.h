// The state of the run in force, and its members under their own names. For shells alone: a kernel takes what it
// needs of them as values and never includes this.
#pragma once

#include "core/EtatRun.h"

namespace ovelin {

extern EtatRun Marche;

inline constinit auto& StopDemande = Marche.StopDemande;
inline constinit auto& Pause = Marche.Pause;
inline constinit auto& ArretRampe = Marche.ArretRampe;
inline constinit auto& FraisageEnCours = Marche.FraisageEnCours;
inline constinit auto& RunActif = Marche.RunActif;
inline constinit auto& FinProgramme = Marche.FinProgramme;
inline constinit auto& TestEnCours = Marche.TestEnCours;
inline constinit auto& OperationCarte = Marche.OperationCarte;
inline constinit auto& ModeEnvoiTable = Marche.ModeEnvoiTable;
inline constinit auto& ListeFlash = Marche.ListeFlash;
inline constinit auto& TableReprise = Marche.TableReprise;
inline constinit auto& IndexSuivi = Marche.IndexSuivi;
inline constinit auto& SansSuivi = Marche.SansSuivi;
inline constinit auto& NbBlocsTotal = Marche.NbBlocsTotal;
inline constinit auto& VitesseJog = Marche.VitesseJog;
inline constinit auto& ClavierActif = Marche.ClavierActif;
inline constinit auto& EcranVeilleActif = Marche.EcranVeilleActif;
inline constinit auto& DepartReprise = Marche.DepartReprise;
inline constinit auto& AttendCarte = Marche.AttendCarte;
inline constinit auto& PlacePerdue = Marche.PlacePerdue;
inline constinit auto& TempsTotal = Marche.TempsTotal;
inline constinit auto& HeureDebut = Marche.HeureDebut;
inline constinit auto& IndexTraceRun = Marche.IndexTraceRun;
inline constinit auto& XTraceRun = Marche.XTraceRun;
inline constinit auto& YTraceRun = Marche.YTraceRun;

}  // namespace ovelin
