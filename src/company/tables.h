// Numbers of the company's tables in Program::tables, and access to them.
#pragma once

#include <array>
#include <memory>

#include "app/program.h"
#include "engine/qdbase.h"

namespace ostrinka {

enum TableNumber : int {
  kDokSprzed = 1,
  kDokZakupu = 2,
  kFormyPlatn = 3,
  kGrupaTU = 4,
  kGrupy = 5,
  kJednMiary = 6,
  kKasyFisk = 7,
  kKontrahenci = 8,
  kOdbiorcy = 9,
  kPanstwa = 10,
  kPracownicy = 11,
  kSprzedane = 12,
  kStawkiVat = 13,
  kTowaryUslugi = 14,
  kRegiony = 15,
  kDokumentKat = 16,
  kWaluty = 17,
  kZestawienieQ09 = 20,
  kZestawienieQ00 = 21,
  kFirma = 32,
};

// The open tables by their number, from 1; null where none is open.
struct OpenTables {
  std::array<std::shared_ptr<ClassQDBASE>, kTableSlots + 1> by_number;
};
inline std::shared_ptr<ClassQDBASE>& OpenTable(const Program& program, int number) {
  return program.Part<OpenTables>().by_number[static_cast<size_t>(number)];
}

// The open table of that number; never null: a closed table object stands in where none is open or the number is outside 1 to 32.
ClassQDBASE& Table(Program& program, int number);
// Whether a table is open under that number.
bool TableIsOpen(const Program& program, int number);

// Whether any is.
bool AnyTableOpen(const Program& program);

// Opens `table` as a private object on the file of the open table `number`, with the same login and no record selected. False when that
// table is not open or its file cannot be opened again.
bool OpenPrivate(Program& program, int number, ClassQDBASE& table, bool links);

// Pattern of a price in currency record `currency` (FORMAT) and of an amount without its symbol, which also decides rounding (FORMATNCH).
// A record out of range gives the settings Currency and CurrencyP. `with_sign` false strips letters and surrounding blanks, so that what
// the pattern prints can be read back. The position and the buffer of the currencies stay as they were.
std::string PricePattern(Program& program, int32_t currency, bool with_sign);
std::string AmountPattern(Program& program, int32_t currency, bool with_sign);

// Screen dates: FORMAT_DATA_EKR of the company, "dd-mm-yyyy" where it is empty. Print dates: FORMAT_DATA_WYD, "dd-mm-yy" where empty.
std::string ScreenDatePattern(Program& program);
std::string PrintDatePattern(Program& program);

}  // namespace ostrinka
