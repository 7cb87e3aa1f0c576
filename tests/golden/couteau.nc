(Fichier généré par OVELIN Version 4.10.0)
(À vérifier avant tout usinage)
(Longueurs en mm, vitesses de cet en-tête en mm/s)
()
( Vitesse matière : 3)
( Vitesse descente : 1)
( Vitesse maxi en X : 50)
( Vitesse maxi en Y : 20)
( Vitesse maxi en Z : 8)
( Hauteur dégagement : 5)
( Profondeur de fraisage : -0.5)
( Profondeur de passe maxi : -2)
( Rayon de l'outil : 1.5)
()
(Unités en millimètres)
G71
(Coordonnées absolues, Z 0 à la surface de la matière)
(Mise en marche de la broche)
M03
F480.00000
G00  Z5.000
F3014.96265
G00  X10.000 Y-1.000
F480.00000
G01  Z0.000
F60.00000
G01  Z-0.500
F180.00000
G01  Y0.000
F60.00000
G01  Z0.000
F480.00000
G00  Z5.000
F1200.00000
G00  Y10.000
F480.00000
G01  Z0.000
F60.00000
G01  Z-0.500
F180.00000
G01  Y20.000
G01  X20.000
G01  Y10.000
G01  X10.000
G01  Y11.000
F60.00000
G01  Z0.000
F480.00000
G00  Z5.000
F2332.38086
G00  X30.000 Y-1.000
F480.00000
G01  Z0.000
F60.00000
G01  Z-0.500
F180.00000
G01  X31.000
F60.00000
G01  Z0.000
F480.00000
G00  Z5.000
F1204.94849
G00  X30.000 Y10.000
F480.00000
G01  Z0.000
F60.00000
G01  Z-0.500
F180.00000
G01  X40.000
G01  X35.000 Y20.000
G01  X30.000 Y10.000
G01  X31.000
F60.00000
G01  Z0.000
F480.00000
G00  Z5.000
F3152.22534
G00  X0.000 Y0.000
F480.00000
G01  Z0.000
(Arrêt de la broche)
M05
(Fin du programme)
M02
