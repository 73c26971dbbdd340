#include "generate_words.h"

namespace ostrinka {
namespace {

using Text = std::string_view;

// Surnames as a man bears them; "ski" and "cki" become "ska" and "cka" for a woman.
constexpr Text kSurnames[] = {
    "Nowak",       "Wiśniewski", "Wójcik",    "Kamiński",   "Lewandowski", "Zieliński", "Szymański", "Woźniak",     "Dąbrowski",
    "Kozłowski",   "Mazur",      "Krawczyk",  "Piotrowski", "Grabowski",   "Pawłowski", "Michalski", "Król",        "Wieczorek",
    "Wróbel",      "Jabłoński",  "Olszewski", "Stępień",    "Malinowski",  "Jaworski",  "Adamczyk",  "Dudek",       "Pawlak",
    "Górski",      "Nowicki",    "Sikora",    "Walczak",    "Rutkowski",   "Baran",     "Michalak",  "Szewczyk",    "Ostrowski",
    "Tomaszewski", "Pietrzak",   "Zalewski",  "Wróblewski", "Kowalski",    "Kowalczyk", "Jankowski", "Witkowski",   "Kwiatkowski",
    "Łukasik",     "Żak",        "Ćwik",      "Ślusarczyk", "Źrebiec",     "Błaszczyk", "Duda",      "Szczepański", "Głowacki",
    "Zawadzki",    "Sadowski",   "Czarnecki", "Kubiak",     "Urbański",    "Gajewski",
};
constexpr Text kMen[] = {"Jan",    "Andrzej",  "Piotr", "Krzysztof", "Stanisław", "Tomasz", "Paweł",    "Józef",   "Marcin",  "Marek",
                         "Michał", "Grzegorz", "Jerzy", "Tadeusz",   "Adam",      "Łukasz", "Zbigniew", "Ryszard", "Dariusz", "Henryk"};
constexpr Text kWomen[] = {"Anna",   "Maria",    "Katarzyna", "Małgorzata", "Agnieszka", "Krystyna", "Barbara",
                           "Ewa",    "Elżbieta", "Zofia",     "Teresa",     "Magdalena", "Joanna",   "Janina",
                           "Monika", "Danuta",   "Jadwiga",   "Aleksandra", "Halina",    "Irena"};
constexpr Text kTrades[] = {
    "Zakład Stolarski", "Hurtownia Elektryczna", "Przedsiębiorstwo Budowlane", "Usługi Transportowe",
    "Piekarnia",        "Skład Opału",           "Biuro Rachunkowe",           "Warsztat Samochodowy",
    "Sklep Spożywczy",  "Zakład Ślusarski",      "Pracownia Krawiecka",        "Serwis Komputerowy",
    "Drukarnia",        "Gospodarstwo Rolne",    "Przychodnia Weterynaryjna",  "Hotel i Restauracja",
    "Kwiaciarnia",      "Zakład Fryzjerski",     "Firma Ogrodnicza",           "Cegielnia",
};
constexpr Text kFirms[] = {"Budmax",          "Elektrożar",
                           "Agropol",         "Dachbud",
                           "Żelbet",          "Solidność",
                           "Metalplast",      "Chemirol",
                           "Łódzkie Tkaniny", "Pomorska Spółdzielnia",
                           "Śląski Węgiel",   "Krakowska Manufaktura",
                           "Rolkow",          "Tarpan",
                           "Zdrój",           "Ósemka"};
constexpr Text kForms[] = {"Sp. z o.o.", "S.A.", "s.c.", "Sp.j."};
constexpr Text kStreets[] = {"Polna",    "Leśna",    "Słoneczna",   "Krótka",     "Szkolna",     "Ogrodowa",    "Lipowa",
                             "Brzozowa", "Łąkowa",   "Kwiatowa",    "Sosnowa",    "Kościelna",   "Akacjowa",    "Parkowa",
                             "Zielona",  "Kolejowa", "Mickiewicza", "Kościuszki", "Żeromskiego", "Piłsudskiego"};
constexpr Words::Town kTowns[] = {
    {"Warszawa", "00", 7},  {"Kraków", "30", 6},     {"Łódź", "90", 5},
    {"Wrocław", "50", 1},   {"Poznań", "60", 15},    {"Gdańsk", "80", 11},
    {"Szczecin", "70", 16}, {"Bydgoszcz", "85", 2},  {"Lublin", "20", 3},
    {"Katowice", "40", 12}, {"Białystok", "15", 10}, {"Kielce", "25", 13},
    {"Rzeszów", "35", 9},   {"Olsztyn", "10", 14},   {"Zielona Góra", "65", 4},
    {"Opole", "45", 8},     {"Toruń", "87", 2},      {"Piotrków Trybunalski", "97", 5},
};
constexpr Text kGoods[] = {"Stół",  "Krzesło", "Szafa",   "Wkręt", "Kabel", "Żarówka", "Cement", "Deska",
                           "Farba", "Śruba",   "Łożysko", "Pompa", "Rura",  "Klej",    "Zawór"};
constexpr Text kKinds[] = {"dębowy",    "stalowy",    "ocynkowany", "biały",       "lakierowany",
                           "miedziany", "zewnętrzny", "ścienny",    "przemysłowy", "składany"};
constexpr Text kNotes[] = {"Dostawa własnym transportem.", "Proszę o kontakt telefoniczny przed dostawą.", "Towar odebrano bez zastrzeżeń.",
                           "Reklamacje uwzględnia się w ciągu 14 dni od daty sprzedaży, po okazaniu faktury."};

}  // namespace

std::string Words::Digits(int count) {
  std::string digits;
  while (count-- > 0) digits += static_cast<char>('0' + Below(10));
  return digits;
}

std::string Words::Surname(bool woman) {
  std::string name(OneOf(kSurnames));
  if (woman && (name.ends_with("ski") || name.ends_with("cki"))) name.back() = 'a';
  return name;
}

std::string Words::Person() {
  const bool woman = OneIn(2);
  const std::string first(woman ? OneOf(kWomen) : OneOf(kMen));
  return first + " " + Surname(woman);
}

std::string Words::Firm() {
  if (OneIn(3)) return std::string(OneOf(kFirms)) + " " + std::string(OneOf(kForms));
  return std::string(OneOf(kTrades)) + " " + Person();
}

std::string Words::Article() {
  const std::string name(OneOf(kGoods)), kind(OneOf(kKinds));
  return name + " " + kind + " " + std::to_string(10 * (1 + Below(40))) + " x " + std::to_string(1 + Below(90)) + " mm";
}

std::string Words::Street() {
  return "ul. " + std::string(OneOf(kStreets));
}
std::string Words::Note() {
  return std::string(OneOf(kNotes));
}
const Words::Town& Words::ATown() {
  return OneOf(kTowns);
}

}  // namespace ostrinka
