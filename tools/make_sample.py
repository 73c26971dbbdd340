#!/usr/bin/env python3
"""Prints a script that makes the company of samples/first-invoice.script as it stands after two months: customers, articles, 40 documents.

make_sample.py FIRST_SCRIPT: everything of that script up to its printing comes first, so that both samples are one company.
"""
import random
import sys

CUSTOMERS = """Pensjonat Pod Lipami|Nałęczów|24-140|Armatorska|3|Zaufani
Restauracja Złoty Łan s.c.|Lublin|20-030|Krakowskie Przedmieście|41|Lokalni
Biuro Rachunkowe Halina Szczęsna|Świdnik|21-040|Racławicka|12|Lokalni
Przedszkole nr 7 w Puławach|Puławy|24-100|Słowackiego|28|Zaufani
Zakład Pogrzebowy Cisza Jan Wójtowicz|Łęczna|21-010|Polna|6|Lokalni
Hurtownia Wnętrz Ćwiek i Wspólnicy Sp. j.|Chełm|22-100|Hrubieszowska|102|Zamiejscowi
Dom Kultury w Krasnymstawie|Krasnystaw|22-300|Okrzei|10|Zamiejscowi
Gospodarstwo Agroturystyczne Żurawie Gniazdo|Zwierzyniec|22-470|Rudka|15|Zamiejscowi
Apteka Pod Różą mgr Elżbieta Król|Lublin|20-076|Narutowicza|58|Lokalni
Usługi Budowlane Tadeusz Pietrzak|Kraśnik|23-200|Urzędowska|33|Lokalni
Spółdzielnia Mieszkaniowa Nasz Dom|Lublin|20-601|Zana|11|Zaufani
Księgarnia Literka Anna Maj|Zamość|22-400|Staszica|2|Lokalni
Muzeum Wsi|Lublin|20-824|Warszawska|96|Zaufani
Kancelaria Notarialna Ewa Śliwa|Lublin|20-002|Okopowa|5|Lokalni
Zajazd Bocian|Garbów|21-080|Warszawska|19|Zamiejscowi""".splitlines()
ARTICLES = """REGAŁ|Regał sosnowy 200 x 80 x 30 cm|szt.|22%|480|310
KOMODA|Komoda bukowa z czterema szufladami|szt.|22%|1290|860
ŁAWA|Ława kawowa jesionowa 110 x 60 cm|szt.|22%|640|415
DRZWI|Drzwi wewnętrzne dębowe, lite, 90 cm|szt.|22%|1750|1180
SCHODY|Stopień schodowy dębowy 100 x 30 x 4 cm|szt.|22%|165|112
LISTWA|Listwa przypodłogowa bukowa 80 mm|m.b.|22%|21,40|13,90
OLEJ|Olej do drewna bezbarwny, puszka 0,75 l|szt.|22%|68|41,50
RENOW|Renowacja mebli zabytkowych|godz.|22%|95|40
POMIAR|Pomiar i projekt zabudowy|szt.|22%|250|90
TRANSP|Transport na terenie województwa|-|22%|2,80|1,60""".splitlines()
TYPES = ["Faktura VAT"] * 8 + ["Pro Forma", "Rachunek"]


def quoted(text):
    return '"' + text.replace('"', '""') + '"'


def main():
    random.seed(2008)
    first = open(sys.argv[1], encoding="utf-8").read()
    print(first[: first.index('echo "== Both on paper"')])
    for row in CUSTOMERS:
        name, town, code, street, house, group = row.split("|")
        print("command KONTRAHENT.DODAJ")
        for field, value in [("txtNazwa", name), ("txtMiejscowość", town), ("txtKodPocztowy", code), ("txtUlica", "ul. " + street),
                             ("txtNrDomu", house), ("txtGrupa", group), ("txtTelefon", "81 555 %02d %02d" % (random.randrange(10, 99), random.randrange(10, 99)))]:
            print("set", field, quoted(value))
        print("press customer.btn.ok")
    names = ["Stół dębowy rozkładany 160/240 x 90 cm", "Krzesło dębowe tapicerowane", "Deska podłogowa sosnowa 28 mm"]
    for row in ARTICLES:
        symbol, name, unit, rate, price, cost = row.split("|")
        names.append(name)
        print("command TOWARUSŁUGA.DODAJ")
        for field, value in [("txtSymbol", symbol), ("txtNazwa", name), ("txtJednostkaMiary", unit), ("txtStawkaVAT", rate), ("txtCenaZakupu", cost),
                             ("txtNetto(0)", price)]:
            print("set", field, quoted(value))
        print("press product.btn.ok")
    buyers = [row.split("|")[0] for row in CUSTOMERS] + ["Hotel Nad Wisłą Sp. z o.o."] * 3
    print("tab SPRZEDAŻ")
    for number in range(38):
        day = 2 + number * 62 // 38
        date = "2008-01-%02d" % day if day <= 31 else "2008-02-%02d" % (day - 31) if day <= 60 else "2008-03-%02d" % (day - 60)
        print("command SPRZEDAŻ.DODAJ")
        print("set txtTypDok", quoted(random.choice(TYPES)))
        print("set txtKontrahent", quoted(random.choice(buyers)))
        print("set txtDataWyst", date)
        print("set txtDataSprzed", date)
        for name in random.sample(names, random.randint(1, 5)):
            print("press sdoc.btn.add")
            print("set txtComboTU", quoted(name))
            print("set txtIlość", random.choice(["1", "2", "4", "6", "12", "2,5", "36"]))
            print("press adps.btn.ok")
        if random.random() < 0.6:
            print("set txtStatus %sdoc.status.ok")
        print("press sdoc.btn.ok")
    print("quit")


main()
