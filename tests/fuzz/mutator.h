#pragma once

#include <QByteArray>

#include <random>
#include <vector>

namespace vellora::test {

// Makes inputs for a fuzz target out of its seeds; the same ones on every machine.
class Mutator {
 public:
  explicit Mutator(std::vector<QByteArray> seeds) : seeds_(std::move(seeds)) {}

  // One of the seeds with a few changes.
  QByteArray next();

 private:
  qsizetype below(qsizetype limit);
  const QByteArray& seed() { return seeds_[static_cast<std::size_t>(below(seedCount()))]; }
  qsizetype seedCount() const { return static_cast<qsizetype>(seeds_.size()); }
  void change(QByteArray& input);

  std::vector<QByteArray> seeds_;
  std::mt19937 random_{7};
};

}  // namespace vellora::test
