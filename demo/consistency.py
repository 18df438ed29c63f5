# Reads the demonstration data and tells what in it does not agree: codes that do not exist, codes
# that begin another, training files the control would not have written, ledgers that do not add up.

import json

HAND_MADE = ("tables.jsonl", "activites.jsonl", "employeurs.jsonl", "droits.jsonl")


def read(folder, names, complain=lambda text: None):
    """All records, by file and key; `complain` gets what is wrong with the form of a line."""
    records = {}
    for name in names:
        text = (folder / name).read_text(encoding="utf-8")
        for number, line in enumerate(text.splitlines(), 1):
            entry = json.loads(line)
            where = f"{name}:{number}"
            if json.dumps(entry, ensure_ascii=False, separators=(",", ":")) != line:
                complain(f"{where}: not in the one form of the exchange format")
            if list(entry) != ["file", "key", "record"]:
                complain(f"{where}: members are not file, key, record")
            numbers = [int(attribute) for attribute in entry["record"]]
            if numbers != sorted(numbers) or "" in entry["record"].values():
                complain(f"{where}: attributes out of order, or empty")
            if (entry["file"], entry["key"]) in records:
                complain(f"{where}: a second record of that key")
            if '"' in entry["key"]:
                complain(f"{where}: a request cannot name a key with a double quote")
            records[entry["file"], entry["key"]] = entry["record"]
    return records


def values(record, attribute):
    """The values of an attribute, as DCount counts them."""
    value = record.get(str(attribute), [])
    return value if isinstance(value, list) else [value]


def value(record, attribute):
    return (values(record, attribute) or [""])[0]


def caregiver(key):
    return key.split("*")[0]


def association(code):
    """A code of 6 characters is a branch of the association of its first 3."""
    return code[:3] if len(code) == 6 else code


def employer(contract):
    return association(value(contract, 3))


class Checker:
    def __init__(self, records, complain):
        self.records, self.complain = records, complain
        self.labels = values(records["TABLES", "FORMPRO"], 2)
        self.caregivers = [key for file, key in records if file == "AIDANT"]
        self.by_employer = {}  # (caregiver, employer) -> contracts that count: code, end, start
        for key, record in self.of("CONTRAT"):
            if value(record, 65) == "":
                contract = tuple(value(record, a) for a in (3, 8, 7))
                self.by_employer.setdefault((caregiver(key), employer(record)), []).append(contract)

    def of(self, file):
        return [(key, record) for (name, key), record in self.records.items() if name == file]

    def expect(self, holds, *what):
        if not holds:
            self.complain(" ".join(what))

    def lines(self, key, record, attributes):
        """Parallel attributes as lines; one value that is empty is no value in a record."""
        columns = [values(record, a) for a in attributes]
        count = max(map(len, columns))
        self.expect(all(len(column) == count or count == 1 for column in columns),
                    key, "parallel attributes of different lengths")
        return list(zip(*(column + [""] * (count - len(column)) for column in columns)))

    def trainings(self, key, record):
        """Date, code, hours, observation, D.I.F. mark."""
        return self.lines(key, record, (5, 6, 7, 8, 14))

    def codes(self):
        for code in self.caregivers:
            for other in self.caregivers:
                self.expect(code == other or not other.startswith(code),
                            "AIDANT", code, "begins", other)
        associations = [key for key, _ in self.of("ASSOCIATION")]
        for key in associations:
            self.expect(len(key) == 3, "ASSOCIATION", key, "is not of 3 characters")
        for key, _ in self.of("CIVILAIDE"):
            self.expect(len(key) not in (3, 6), "CIVILAIDE", key, "is as long as an association's")
            self.expect(key[:3] not in associations, "CIVILAIDE", key, "begins as an association")
        for table, width in (("DIPLOMES", 2), ("FORMPRO", 3)):
            record = self.records["TABLES", table]
            codes, labels = values(record, 2), values(record, 3)
            self.expect(len(codes) == len(labels) == len(set(codes)) == len(set(labels))
                        and all(len(code) == width for code in codes) and all(labels),
                        table, "is not a table of different codes and labels")
        activities = [key for key, _ in self.of("ACTIVITES")]
        for key, record in self.of("DROITS"):
            login, _, module = key.partition("*")
            self.expect(("UTILISATEURS", login) in self.records, "DROITS", key, "has no user")
            self.expect(module in ("VORANDINEDROIT", "FORMDIF", "CALCULREMU", "PARAMETRES"),
                        "DROITS", key, "names no module")
            self.expect(set(values(record, 3)) <= {"*", *activities}, "DROITS", key, "activities")

    def dossiers(self):
        """Each as the control composes it, so that looking at one is not taken for a change."""
        diplomas = values(self.records["TABLES", "DIPLOMES"], 2)
        qualifications = values(self.records["TABLES", "QUALIF"], 2)
        for key, record in self.of("FORMVORANDINE"):
            self.expect(key in self.caregivers, "FORMVORANDINE", key, "has no caregiver")
            self.expect(all(1 <= int(a) <= 15 for a in record), key, "attributes")
            self.expect(value(record, 1) in ("D", "N"), key, "kind of study")
            self.expect(value(record, 2) in diplomas, key, "study")
            self.expect(value(record, 15) in ["", *qualifications], key, "qualification")
            self.expect(len(values(record, 9)) == 7, key, "experience is not of 7 lines")
            for code in values(record, 10):
                self.expect(("ACTIVITES", code) in self.records, key, "activity", code)
            entry, first, last = (value(record, a) for a in (11, 12, 13))
            self.expect("" < entry <= first and (last == "" or first <= last), key, "availability")
            lines = self.trainings(key, record)
            dates = [line[0] for line in lines]
            self.expect(dates == sorted(dates, reverse=True), key, "trainings out of order")
            for date, code, hours, _, charged in lines:
                self.expect(date == "" or len(date) == 8, key, "date", date)
                self.expect(code in self.labels, key, "training", code)
                self.expect(hours.isdigit() and charged in ("0", "1"), key, date, code)
                self.expect(charged == "0" or date, key, "charged without a date")

    def contracts(self):
        for key, record in self.of("CONTRAT"):
            code = employer(record)
            association = self.records.get(("ASSOCIATION", code))
            household = self.records.get(("CIVILAIDE", code))
            name = [value(association, 1), ""] if association else \
                [value(household or {}, 2), value(household or {}, 3)]
            self.expect(name[0] and name == [value(record, 4), value(record, 5)],
                        "CONTRAT", key, "employer")
            self.expect(caregiver(key) in self.caregivers, "CONTRAT", key, "has no caregiver")
            start, end = value(record, 7), value(record, 8)
            self.expect(start and (end == "" or start <= end), "CONTRAT", key, "dates")
        for who, contracts in self.by_employer.items():
            # An open contract sorted after an ended one would not be seen to be open.
            ends = [end for _, end, _ in sorted(contracts)]
            self.expect("" not in ends[1:] or ends[0] == "", "CONTRAT", *who, "open one not first")

    def ledgers(self):
        charged = set()
        for key, record in self.of("DIFAIDANT"):
            who = (key[:5], key[5:])
            contracts = self.by_employer.get(who, [])
            self.expect(contracts, "DIFAIDANT", key, "has no contract")
            lines = self.lines(key, record, (1, 2, 3, 4, 5))
            self.expect(lines and lines[0][1], "DIFAIDANT", key, "does not begin with rights")
            balance, before = 0, ""
            for date, rights, hours, after, training in lines:
                where = ("DIFAIDANT", key, date)
                balance += int(rights or 0) - int(hours or 0)
                self.expect(before <= date, *where, "out of order")
                self.expect((rights == "") == (hours != "") == (training != ""), *where,
                            "is neither rights nor hours")
                self.expect(after == str(balance), *where, "balance")
                if training:
                    charged.add((who[0], date, training))
                    self.expect(any(start <= date <= (end or date) for _, end, start in contracts),
                                *where, "charged outside the contracts")
                before = date
        marked = {(key, line[0], line[1]) for key, record in self.of("FORMVORANDINE")
                  for line in self.trainings(key, record) if line[4] == "1"}
        for only in sorted(charged ^ marked):
            self.complain(" ".join((*only, "is charged or marked, but not both")))

    def tour(self):
        """What the guided tour and the guide show of one caregiver."""
        who = "00012"
        ledgers = {key[5:]: record for key, record in self.of("DIFAIDANT") if key[:5] == who}
        employers = [code for caregiver, code in self.by_employer if caregiver == who]
        self.expect({len(code) == 3 for code in employers} == {True, False},
                    who, "has not both kinds of employers")
        self.expect(set(employers) - set(ledgers), who, "has a ledger with each employer")
        self.expect(any(values(record, 4)[-1][0] == "-" for record in ledgers.values()),
                    who, "has no balance below zero")
        self.expect(sum(len(values(record, 1)) for record in ledgers.values()) >= 6,
                    who, "has too few lines of D.I.F.")

    def pay(self):
        for key, record in self.of("DETAILCALCUL"):
            _, number, period = key.split("*")[:3]
            contract = self.records.get(("CONTRAT", f"{caregiver(key)}*{number}"), {})
            self.expect(value(contract, 3) == value(record, 1) != "",
                        "DETAILCALCUL", key, "employer")
            self.expect(value(record, 4) == period and value(record, 3) in ("0", "1"),
                        "DETAILCALCUL", key, "period")
            for text in (value(record, 6) or "0", value(record, 16)):
                self.expect(text.replace(",", "", 1).isdigit(), "DETAILCALCUL", key, "number", text)


def problems(folder, names):
    found = []
    checker = Checker(read(folder, names, found.append), found.append)
    for subject in (checker.codes, checker.dossiers, checker.contracts, checker.ledgers,
                    checker.tour, checker.pay):
        subject()
    return found
