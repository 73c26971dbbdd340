// The data that is measured: companies made once and kept, and a scratch folder that is made anew for each run.
#pragma once

#include <memory>
#include <string>

#include "app/program.h"
#include "generate_surroundings.h"

namespace ostrinka::bench {

// A program with a company open, and the same rows in SQLite.
class Company {
 public:
  // `folder` (with a closing slash) holds "company/" and "company.sqlite"; they are made when they are not there or of another version.
  // 0 customers: the company is empty.
  Company(const std::string& folder, const std::string& catalogues, int32_t customers);
  ~Company();

  Program& program() { return *program_; }
  Platform& platform() { return surroundings_.script.platform; }
  const std::string& tables() const { return tables_; }
  const std::string& sqlite() const { return sqlite_; }

 private:
  void Make(const std::string& folder, int32_t customers);

  std::string tables_, sqlite_;
  Surroundings surroundings_;
  std::unique_ptr<Program> program_;
};

// What all rows work with.
struct Data {
  std::string scratch;  // a folder with a closing slash
  int32_t customers;
  Company full;   // `customers` customers
  Company small;  // 250 customers, enough for a thousand invoices
  Company empty;

  Data(const std::string& folder, const std::string& catalogues, int32_t count);
};

}  // namespace ostrinka::bench
