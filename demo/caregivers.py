# The caregivers of the demonstration data, invented: code, name, year of entry and number of
# trainings. Everything else about them is drawn, save where SHAPED says otherwise.

CAREGIVERS = (
    ("00012", "DURAND Marie", 2009, 12),
    ("00027", "ABGRALL Solenn", 1998, 31),
    ("00031", "AÏT-AHMED Nadia", 2006, 14),
    ("00044", "BÉRANGER Élodie", 2013, 9),
    ("00058", "BERNARD Chantal", 1997, 60),
    ("00063", "BŒUF Céline", 2016, 6),
    ("00075", "BOUCHER Émilie", 2019, 4),
    ("00086", "CARPENTIER Josiane", 1999, 26),
    ("00092", "CHÂTELAIN Brigitte", 2003, 19),
    ("00105", "COLIN Patricia", 2005, 8),
    ("00118", "COSTA FERREIRA Maria da Conceição", 2008, 11),
    ("00124", "D'ALMEIDA Grâce", 2017, 7),
    ("00133", "DA SILVA Lúcia", 2011, 10),
    ("00149", "DE SAINT-AUBIN Marie-Françoise", 2001, 17),
    ("00151", "DELAUNAY Régis", 2014, 5),
    ("00166", "DIALLO Fatoumata", 2018, 8),
    ("00172", "DUPRÉ Nathalie", 2004, 0),
    ("00188", "ESTÈVE Maïté", 2010, 13),
    ("00190", "FAUCHER Huguette", 1998, 22),
    ("00207", "GARCÍA Pilar", 2007, 9),
    ("00213", "GIRAUD Loïc", 2020, 3),
    ("00229", "GUÉGAN Nolwenn", 2012, 15),
    ("00234", "HÉBERT Monique", 2000, 28),
    ("00246", "HUET Sandrine", 2015, 1),
    ("00255", "JACQUOT Aurélie", 2021, 5),
    ("00268", "KOWALCZYK Danuta", 2002, 16),
    ("00271", "L'HELGOUALC'H Gwenaëlle", 2006, 12),
    ("00287", "LAMBERT Océane", 2025, 0),
    ("00293", "LE GOFF Anaïs", 2016, 9),
    ("00304", "LECŒUR Stéphanie", 2009, 10),
    ("00315", "LEFÈBVRE Ghislaine", 1999, 24),
    ("00322", "LOPEZ Inès", 2022, 4),
    ("00338", "MARTIN Sylvie", 2003, 18),
    ("00341", "MARTIN Sylvie", 2012, 7),
    ("00359", "MÉNARD Joëlle", 2005, 15),
    ("00360", "MOREAU-LE BIHAN Clémence", 2018, 6),
    ("00377", "N'DIAYE Aïssatou", 2014, 11),
    ("00382", "NGUYEN Thị Lan", 2010, 8),
    ("00398", "ÖZTÜRK Elif", 2019, 5),
    ("00401", "PELLETIER Véronique", 2008, 14),
    ("00416", "PICARD Guénolé", 2023, 2),
    ("00425", "RENAUD Hélène", 2001, 21),
    ("00433", "ROUSSEL Zélie", 2024, 2),
    ("00447", "TRAORÉ Mariam", 2015, 9),
    ("00452", "VAN DER MEULEN-BEAUCHESNE Marie-Clémentine", 2007, 13),
    ("00469", "VASSEUR Éric", 2017, 3),
    ("00474", "YILDIRIM Ayşe", 2020, 4),
    ("00480", "ZELLER Noëlle", 2002, 10),
)

# "file": False is a caregiver whose training file was never opened; "activities": these, or
# False for none chosen yet; "contracts": these, as employer's code, first and last day ("" while
# open); "employers": these, one contract each where "open"; "charged": how many trainings in a
# hundred are tried against the D.I.F.; "overdrawn": the employer who pays alone while it has a
# contract, even beyond the balance.
SHAPED = {
    # The tour shows her D.I.F.: households and associations, a branch, two contracts with one
    # employer, a balance below zero, and a contract so young that it has no hours yet.
    "00012": {"contracts": (("PSD", "2009-07-06", ""), ("P0112", "2010-10-04", ""),
                            ("MDP004", "2011-02-01", "2015-08-31"),
                            ("MDP004", "2016-01-04", "2017-12-29"),
                            ("P0140", "2018-09-03", "2019-06-28"), ("ADC", "2026-03-02", "")),
              "activities": ("LEV", "TOI", "HAB", "REP", "CRS", "COM"), "charged": 80,
              "overdrawn": "P0140"},
    "00058": {"employers": ("MDP", "SFR", "P0133", "P0163")},
    "00105": {"activities": False},
    "00172": {"employers": ("ADC", "P0104")},
    "00287": {"employers": ("BAM", "P204"), "open": True, "file": False},
    "00433": {"employers": ()},
}
