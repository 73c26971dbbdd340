#include "print/party_block.h"

#include <algorithm>

#include "base/text.h"
#include "books/books.h"
#include "books/rows.h"

namespace ostrinka {
namespace {

constexpr double kHeadingHeight = 5;
constexpr double kHeadingSize = 10;
constexpr double kInset = 1;
constexpr double kAfterHeading = 1.2;
constexpr double kLineAir = 0.3;  // between the lines of a block
constexpr double kGap = 0.9;      // between the groups of a block
constexpr double kUnder = 4;      // under a block
constexpr double kBlockWidth = 90;
constexpr std::string_view kBetween = "    ";

// Sizes of the text with the lowest end of the blocks that each is taken for, in shares of the sheet above the footer.
constexpr struct { double size, lowest; } kSizes[] = {{10, 0.45}, {9, 0.55}, {8, 0.65}, {7, 0.8}, {6, 1}, {5, 1}, {4, 1}};

// Builds the lines of a block; what is empty leaves no line.
class PartyWriter {
 public:
  explicit PartyWriter(Program& program) : program_(program) {}
  Party Take(const char* heading_key) { return {heading_key, std::move(lines_)}; }

  void Group() { gap_ = lines_.empty() ? 0 : kGap; }
  void Add(const std::string& text, bool bold = false) { AddTogether({text}, bold); }
  void AddTogether(std::vector<std::string> things, bool bold = false) {
    std::erase(things, "");
    if (things.empty()) return;
    lines_.push_back({std::move(things), bold, gap_});
    gap_ = 0;
  }
  // A value behind the text of its key; "" when it is empty.
  std::string Named(const char* key, const std::string& value) const { return value.empty() ? "" : program_.Text(key) + " " + value; }

 private:
  Program& program_;
  std::vector<PartyLine> lines_;
  double gap_ = 0;
};

std::string Street(const std::string& street, const std::string& house, const std::string& flat) {
  std::string text = Trim(street + " " + house);
  if (!flat.empty()) text += "/" + flat;
  return text;
}

std::string Town(const std::string& code, const std::string& town, const std::string& country) {
  std::string text = Trim(code + " " + town);
  if (!country.empty()) text += (text.empty() ? "" : ", ") + country;
  return text;
}

// Each further account with its description; once one of them is the chosen one, the others' descriptions stay away.
void AddAccounts(const CompanyRecord& company, PartyWriter& writer, const std::string& account) {
  writer.Group();
  writer.AddTogether({writer.Named("sdoc.info.bank", company.B_NAZWA), writer.Named("sdoc.info.swift", company.B_SWIFT)});
  writer.Add(writer.Named("sdoc.info.acount", account));
  for (int n = 1; n <= 4; ++n) {
    writer.Group();
    writer.Add(company.B_KONTO_D[static_cast<size_t>(n - 1)]);
    if (company.chosen_account_text == 0 || company.chosen_account_text == n) writer.Add(company.B_KONTO_OPIS[static_cast<size_t>(n - 1)]);
  }
}

std::string IndividualAccount(Program& program, int32_t customer) {
  const auto row = Read<Customer>(program, customer);
  return row && row->has_own_account ? Trim(row->own_account) : "";
}

// The things of a line as they stand: together, or apart when they are too wide for one line.
std::vector<std::string> Broken(const PageFlow& flow, const PartyLine& line, double width) {
  std::vector<std::string> lines;
  std::string together;
  for (const std::string& thing : line.things) {
    const std::string longer = together.empty() ? thing : together + std::string(kBetween) + thing;
    if (together.empty() || flow.Break(longer, width).size() == 1) {
      together = longer;
      continue;
    }
    for (std::string& part : flow.Break(together, width)) lines.push_back(std::move(part));
    together = thing;
  }
  for (std::string& part : flow.Break(together, width)) lines.push_back(std::move(part));
  return lines;
}

}  // namespace

Party SellerParty(Program& program, const PrintOptions& options, int32_t customer) {
  const CompanyRecord& company = options.company;
  const std::string individual = IndividualAccount(program, customer);
  PartyWriter writer(program);
  writer.Add(company.S_NAZWA, true);
  writer.Add(Street(company.S_ULICA, company.S_NRDOM, company.S_NRLOK));
  writer.Add(Town(company.S_KPOCZ, company.S_MIAST, company.S_KRAJS));
  writer.AddTogether({writer.Named("sdoc.info.phone", company.K_TSTAC), writer.Named("sdoc.info.fax", company.K_TFAKS)});
  writer.Group();
  writer.AddTogether({writer.Named("sdoc.info.nip", company.F_NRNIP), writer.Named("sdoc.info.nipeu", company.F_NIPEU),
                      writer.Named("sdoc.info.regon", company.F_REGON)});
  AddAccounts(company, writer, individual.empty() ? company.B_KONTO : individual);
  writer.Group();
  writer.AddTogether({writer.Named("sdoc.info.www", company.K_STWWW), writer.Named("sdoc.info.email", company.K_EMAIL)});
  return writer.Take("sdoc.info.scust");
}

Party BuyerParty(Program& program, const PrintOptions& options, int32_t customer, const char* heading_key) {
  const auto row = Read<Customer>(program, customer);
  PartyWriter writer(program);
  if (!row) {
    writer.Add(program.Text("sdoc.error"), true);
    writer.Add(program.Text("sdoc.error.nc"));
    return writer.Take(heading_key);
  }
  const std::string country = Trim(LinkText(program, customer_columns::kCountry, customer));
  const std::string tax_number = writer.Named("sdoc.info.nip", Trim(row->tax_number));
  writer.Add(Trim(row->name), true);
  if (options.tax_number_first) writer.Add(tax_number);
  writer.Add(Street(Trim(row->street), Trim(row->house), Trim(row->flat)));
  writer.Add(Town(Trim(row->postal_code), Trim(row->town), country));
  writer.AddTogether({writer.Named("sdoc.info.phone", Trim(row->phone)), writer.Named("sdoc.info.mobile", Trim(row->mobile)),
                      writer.Named("sdoc.info.fax", Trim(row->fax))});
  writer.Group();
  writer.AddTogether({options.tax_number_first ? "" : tax_number, writer.Named("sdoc.info.nipeu", Trim(row->eu_tax_number)),
                      writer.Named("sdoc.info.regon", Trim(row->statistical_number))});
  writer.Group();
  writer.AddTogether({writer.Named("sdoc.info.www", Trim(row->web)), writer.Named("sdoc.info.email", Trim(row->email))});
  return writer.Take(heading_key);
}

double PartyHeight(PageFlow& flow, const Party& party, double width, double size) {
  double height = kHeadingHeight + kAfterHeading + kUnder;
  for (const PartyLine& line : party.lines) {
    flow.Font(size, line.bold);
    height += kLineAir + line.gap + flow.Pitch() * static_cast<double>(Broken(flow, line, width - 2 * kInset).size());
  }
  return height;
}

double PrintPartyBlock(PageFlow& flow, const Party& party, double x, double y, double width, double size) {
  flow.Font(kHeadingSize, true);
  flow.Head(flow.program().Text(party.heading_key), x, y, width, kHeadingHeight);
  double at = y + kHeadingHeight + kAfterHeading;
  for (const PartyLine& line : party.lines) {
    flow.Font(size, line.bold);
    at = flow.Lines(x + kInset, at + line.gap, Broken(flow, line, width - 2 * kInset), width - 2 * kInset) + kLineAir;
  }
  return at + kUnder;
}

double PrintSellerBlock(PageFlow& flow, int32_t customer, double x, double y, double width, double size) {
  return PrintPartyBlock(flow, SellerParty(flow.program(), flow.options(), customer), x, y, width, size);
}

double PrintBuyerBlock(PageFlow& flow, int32_t customer, const char* heading_key, double x, double y, double width, double size) {
  return PrintPartyBlock(flow, BuyerParty(flow.program(), flow.options(), customer, heading_key), x, y, width, size);
}

void PrintParties(PageFlow& flow, int32_t customer, int32_t payer) {
  const Party seller = SellerParty(flow.program(), flow.options(), customer),
              buyer = BuyerParty(flow.program(), flow.options(), customer, "sdoc.info.bcust");
  const Party third = BuyerParty(flow.program(), flow.options(), payer, "sdoc.info.pcust");
  double size = kSizes[0].size;
  for (const auto& [next, lowest] : kSizes) {
    size = next;
    const double right = PartyHeight(flow, buyer, kBlockWidth, size) + (payer > 0 ? PartyHeight(flow, third, kBlockWidth, size) : 0);
    if (flow.y + std::max(PartyHeight(flow, seller, kBlockWidth, size), right) <= flow.Bottom() * lowest) break;
  }
  const double right = flow.Right() - kBlockWidth;
  const double seller_end = PrintPartyBlock(flow, seller, flow.Left(), flow.y, kBlockWidth, size);
  double buyer_end = PrintPartyBlock(flow, buyer, right, flow.y, kBlockWidth, size);
  if (payer > 0) buyer_end = PrintPartyBlock(flow, third, right, buyer_end, kBlockWidth, size);
  flow.y = std::max(seller_end, buyer_end);
}

}  // namespace ostrinka
