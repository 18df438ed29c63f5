#!/usr/bin/env python3
# Writes the caregivers of the demonstration data, aidants.jsonl: files, contracts, D.I.F. ledgers
# and pay detail, drawn from the hand-made tables beside this script. The same text comes out on
# every machine. With --check nothing is written: the file must be what would be written, and all
# demonstration data must agree with itself.

import argparse
import datetime
import json
import sys
from pathlib import Path

sys.dont_write_bytecode = True
import consistency
from caregivers import CAREGIVERS, SHAPED

FOLDER = Path(__file__).resolve().parent
TARGET = FOLDER / "aidants.jsonl"

TODAY = datetime.date(2026, 10, 15)
PAY_FROM, PAY_TO = (2023, 10), (2026, 9)
DIF_FROM = 2005  # the year of the first yearly rights
DIF_YEAR, DIF_CEILING = 2000, 12000  # hundredths of an hour

HOURS = (350, 700, 700, 700, 1400, 1400, 2100, 350, 1050, 3500, 400, 250)
REMARKS = ("", "", "", "", "Attestation remise", "Organisée par l'employeur", "À renouveler",
           "Absence l'après-midi", "Recyclage", "Sur 2 jours", "À distance", "En binôme")
SPECIALITIES = ("", "", "Personnes âgées", "Petite enfance", "Handicap", "Vie à domicile")
PAST = ("ménage chez des particuliers", "agent de service hospitalier", "cantine scolaire",
        "garde d'enfants à domicile", "vente en boulangerie", "entretien de bureaux",
        "lingerie d'une maison de retraite", "caisse de supermarché",
        "remplacements d'été en établissement pour personnes âgées",
        "accompagnement d'un parent dépendant")
MEMOS = ("", "", "", "", "", "Solde vérifié avec l'employeur", "Reprise d'ancienneté")


class Draw:
    """A small generator of its own: the library's draws may change from one Python to the next."""

    def __init__(self, seed):
        self.state = int.from_bytes(seed.encode("utf-8"), "big") + 1
        for _ in range(8):
            self.below(2)

    def below(self, limit):
        self.state = (self.state * 6364136223846793005 + 1442695040888963407) % 2**64
        return (self.state >> 33) % limit

    def between(self, first, last):
        return first + self.below(last - first + 1)

    def pick(self, choices):
        return choices[self.below(len(choices))]

    def chance(self, percent):
        return self.below(100) < percent

    def sample(self, choices, count):
        rest = list(choices)
        return [rest.pop(self.below(len(rest))) for _ in range(min(count, len(rest)))]


class Tables:
    """What the caregivers are drawn from: the hand-made files."""

    def __init__(self, records):
        self.diplomas = records["TABLES", "DIPLOMES"]["2"]
        self.trainings = records["TABLES", "FORMPRO"]["2"]
        self.qualifications = records["TABLES", "QUALIF"]["2"]
        self.activities = [key for file, key in records if file == "ACTIVITES"]
        self.employers = {}  # code -> name and first name, as contracts are sorted
        for (file, key), record in records.items():
            if file == "ASSOCIATION":
                self.employers[key] = (record["1"], "")
            elif file == "CIVILAIDE":
                self.employers[key] = (record["2"], record["3"])
        self.associations = [code for code in self.employers if len(code) == 3]
        self.households = [code for code in self.employers if len(code) != 3]


def stored(day):
    return day.strftime("%Y%m%d") if day else ""


day_of = datetime.date.fromisoformat


def working_day(draw, first, last):
    """A day of the week between the two; None if there is none."""
    span = (last - first).days
    for _ in range(20):
        if span < 0:
            return None
        day = first + datetime.timedelta(days=draw.between(0, span))
        if day.weekday() < 5:
            return day
    return None


class Contract:
    def __init__(self, code, stored_code, start, end, cancelled=False):
        self.code, self.stored_code, self.start, self.end = code, stored_code, start, end
        self.cancelled = cancelled

    def covers(self, day):
        return not self.cancelled and self.start <= day and (self.end is None or day <= self.end)


class Caregiver:
    def __init__(self, tables, code, name, since, trainings):
        self.tables, self.code, self.name = tables, code, name
        self.shape = SHAPED.get(code, {})
        self.draw = Draw(code)
        self.start = datetime.date(since, self.draw.between(1, 9), self.draw.between(1, 28))
        self.wanted = trainings
        self.contracts = []
        self.ledgers = {}  # employer -> lines [date, rights, hours, balance, training]
        self.trainings = []  # [date, code, hours, remark, "0" or "1"]

    def make(self):
        self.make_contracts()
        self.make_trainings()
        self.make_ledgers()
        yield "AIDANT", self.code, {1: self.name}
        if self.shape.get("file", True):
            yield "FORMVORANDINE", self.code, self.dossier()
        yield from self.contract_records()
        for code in sorted(self.ledgers):
            lines = self.ledgers[code]
            record = {a + 1: [str(line[a]) for line in lines] for a in range(5)}
            record[6] = self.draw.pick(MEMOS)
            yield "DIFAIDANT", self.code + code, record
        yield from self.pay_records()

    def employers(self):
        if "employers" in self.shape:
            return list(self.shape["employers"])
        some = self.draw.sample(self.tables.associations, self.draw.pick((0, 1, 1, 1, 2)))
        return some + self.draw.sample(self.tables.households, self.draw.pick((0, 1, 1, 2, 3)))

    def make_contracts(self):
        if "contracts" in self.shape:
            for code, start, end in self.shape["contracts"]:
                self.contracts.append(Contract(consistency.association(code), code, day_of(start),
                                               day_of(end) if end else None))
        else:
            self.draw_contracts()
        self.contracts.sort(key=lambda contract: (contract.start, contract.stored_code))

    def draw_contracts(self):
        for code in self.employers():
            open_ended = self.shape.get("open", False)
            # A code of 6 characters names a branch of the association.
            branch = f"{self.draw.between(1, 12):03d}" if self.draw.chance(35) else ""
            full = code + branch if len(code) == 3 else code
            start = self.start + datetime.timedelta(
                days=self.draw.pick((0, 0, 1)) * self.draw.between(30, 900))
            while start < TODAY:
                end = start + datetime.timedelta(days=self.draw.between(240, 3600))
                if open_ended or end >= TODAY:
                    end = None
                self.contracts.append(Contract(code, full, start, end))
                if end is None or self.draw.chance(55):
                    break
                start = end + datetime.timedelta(days=self.draw.pick((1, 1, 31, 93, 214)))
            if self.draw.chance(8):
                # Signed and never begun: it counts for nothing.
                self.contracts.append(
                    Contract(code, full, self.start, self.start + datetime.timedelta(60), True))

    def make_trainings(self):
        seen = set()
        while len(self.trainings) < self.wanted:
            code = self.draw.pick(self.tables.trainings)
            day = working_day(self.draw, self.start, TODAY)
            if self.draw.chance(6) and len(self.trainings) > 1:
                day = None
            # Two trainings of one day and label could not be told apart in the ledgers.
            if day and (day, code) in seen:
                continue
            seen.add((day, code))
            hours = self.draw.pick(HOURS)
            if not day and self.draw.chance(50):
                hours = 0
            self.trainings.append([day, code, hours, self.draw.pick(REMARKS), "0"])
        # Latest first, undated last: the order in which the control keeps them.
        self.trainings.sort(key=lambda line: stored(line[0]), reverse=True)

    def yearly_rights(self, code):
        """The lines by which an employer's rights grow: one a year, in proportion to the year."""
        mine = [c for c in self.contracts if c.code == code and not c.cancelled]
        full_time = self.draw.pick((100, 100, 100, 80, 70))
        for year in range(DIF_FROM, TODAY.year):
            days = [day for day in range(360)
                    if any(c.covers(datetime.date(year, day // 30 + 1, day % 30 % 28 + 1))
                           for c in mine)]
            rights = DIF_YEAR * len(days) // 360 * full_time // 100 // 50 * 50
            if rights >= 100:
                last = datetime.date(year, 12, 31)
                while not any(c.covers(last) for c in mine):
                    last -= datetime.timedelta(days=1)
                yield last, rights

    def make_ledgers(self):
        codes = sorted({c.code for c in self.contracts})
        events = [(day, 1, code, rights)
                  for code in codes for day, rights in self.yearly_rights(code)]
        events += [(line[0], 0, i, line) for i, line in enumerate(self.trainings) if line[0]]
        for day, is_rights, which, what in sorted(events, key=lambda event: event[:3]):
            if is_rights:
                self.gain(day, which, what)
            elif self.draw.chance(self.shape.get("charged", 45)):
                self.charge(day, what)

    def balance(self, code):
        return self.ledgers[code][-1][3] if code in self.ledgers else 0

    def gain(self, day, code, rights):
        balance = self.balance(code)
        rights = min(rights, DIF_CEILING - balance)
        if rights > 0:
            line = [stored(day), rights, "", balance + rights, ""]
            self.ledgers.setdefault(code, []).append(line)

    def charge(self, day, training):
        """Charges a training to one employer of that day, or to two by halves."""
        payers = [c.code for c in self.contracts
                  if c.covers(day) and self.balance(c.code) >= max(training[2], 1)]
        payers = list(dict.fromkeys(payers))
        overdrawn = self.shape.get("overdrawn")
        if overdrawn in self.ledgers and any(
                c.code == overdrawn and c.covers(day) for c in self.contracts):
            payers = [overdrawn]
        if not payers or training[2] == 0:
            return
        payers = payers[:2] if self.draw.chance(40) else payers[:1]
        shares = [training[2] // len(payers)] * len(payers)
        shares[0] += training[2] - sum(shares)
        for code, hours in zip(payers, shares):
            balance = self.balance(code) - hours
            self.ledgers[code].append([stored(day), "", hours, balance, training[1]])
        training[4] = "1"

    def dossier(self):
        draw = self.draw
        record = {}
        diploma = draw.pick(self.tables.diplomas)
        record[1] = "N" if diploma[0] == "N" else "D"
        record[2] = diploma
        if record[1] == "D":
            record[3] = str(self.start.year - draw.between(1, 15))
            record[4] = draw.pick(SPECIALITIES)
        record[5] = [stored(line[0]) for line in self.trainings]
        for attribute, column in ((6, 1), (7, 2), (8, 3), (14, 4)):
            record[attribute] = [str(line[column]) for line in self.trainings]
        record[9] = self.experience()
        if self.shape.get("activities", True):
            count = draw.pick((3, 5, 8, 12, len(self.tables.activities)))
            record[10] = list(self.shape.get("activities", ())) or \
                draw.sample(self.tables.activities, count)
        available = self.start + datetime.timedelta(days=draw.pick((0, 0, 7, 30)))
        record[11], record[12] = stored(self.start), stored(available)
        if draw.chance(20):
            record[13] = stored(TODAY + datetime.timedelta(days=draw.between(30, 1500)))
        record[15] = draw.pick([""] + self.tables.qualifications)
        return record

    def experience(self):
        year = self.start.year - self.draw.between(3, 18)
        lines = []
        for past in self.draw.sample(PAST, self.draw.between(0, 5)):
            until = min(year + self.draw.between(1, 6), self.start.year)
            if lines and year == self.start.year:
                break
            lines.append(f"{year}-{until} : {past}" if until > year else f"{year} : {past}")
            year = until
        return lines + [""] * (7 - len(lines))

    def contract_records(self):
        for number, contract in enumerate(self.contracts, 1):
            name, first_name = self.tables.employers[contract.code]
            record = {3: contract.stored_code, 4: name, 5: first_name,
                      7: stored(contract.start), 8: stored(contract.end)}
            if contract.cancelled:
                record[65] = "1"
            elif contract.end:
                record[63] = contract.end.strftime("%Y%m")
            elif (contract.start.year, contract.start.month) <= PAY_TO:
                record[63] = "%04d%02d" % PAY_TO
            yield "CONTRAT", f"{self.code}*{number}", record

    def pay_records(self):
        months = [(year, month) for year in range(PAY_FROM[0], PAY_TO[0] + 1)
                  for month in range(1, 13) if PAY_FROM <= (year, month) <= PAY_TO]
        for number, contract in enumerate(self.contracts, 1):
            agreement = "03"
            if len(contract.code) == 3:
                # Agreement 02 stays outside the reference pay of an association.
                agreement = "02" if self.draw.chance(15) and not self.shape else "01"
            base = self.draw.between(80, 400) * 25  # hundredths of an hour a month
            rate = self.draw.between(925, 1130)  # cents an hour, net
            for year, month in months:
                if not contract.covers(datetime.date(year, month, 15)):
                    continue
                hours = base + self.draw.between(-12, 12) * 25
                net = (hours * (rate + (year - 2023) * 18) + 50) // 100
                counts = "0" if self.draw.chance(4) else "1"
                key = f"{self.code}*{number}*{year}{month:02d}"
                line = {1: contract.stored_code, 2: agreement, 3: counts, 4: f"{year}{month:02d}"}
                yield "DETAILCALCUL", key, {**line, 6: decimal(hours), 16: decimal(net)}
                if month == 12 and len(contract.code) == 3:
                    # The yearly bonus: pay without hours.
                    yield "DETAILCALCUL", key + "*PRIME", {**line, 16: decimal(net * 8 // 100)}


def decimal(hundredths):
    """As pay detail keeps numbers: a comma only where they are not whole."""
    whole, rest = divmod(hundredths, 100)
    return f"{whole},{rest:02d}" if rest else str(whole)


def exchange_line(file, key, record):
    """The one form of a record: ascending attributes, empty ones left out."""
    attributes = {}
    for attribute in sorted(record):
        value = record[attribute]
        if isinstance(value, list) and len(value) < 2:
            value = value[0] if value else ""
        if value != "":
            attributes[str(attribute)] = value
    return json.dumps({"file": file, "key": key, "record": attributes}, ensure_ascii=False,
                      separators=(",", ":"))


def generate():
    hand_made = consistency.read(FOLDER, consistency.HAND_MADE)
    tables = Tables(hand_made)
    lines = []
    for row in CAREGIVERS:
        lines += [exchange_line(*record) for record in Caregiver(tables, *row).make()]
    return "\n".join(lines) + "\n"


def main():
    parser = argparse.ArgumentParser(description="Writes demo/aidants.jsonl.")
    parser.add_argument("--check", action="store_true",
                        help="write nothing; verify the file and the agreement of all data")
    text = generate()
    if not parser.parse_args().check:
        TARGET.write_text(text, encoding="utf-8", newline="\n")
        return 0
    problems = []
    if not TARGET.exists() or TARGET.read_bytes() != text.encode("utf-8"):
        problems.append(f"{TARGET.name} is not what generate.py writes: run demo/generate.py")
    else:
        problems += consistency.problems(FOLDER, [*consistency.HAND_MADE, TARGET.name])
    for problem in problems:
        print(problem, file=sys.stderr)
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main())
