#pragma once

#include <atomic>
#include <cstddef>
#include <deque>
#include <string>

#include "measuring/FileStats.h"

namespace quillmeter {

class WorkerPool;

/// Measures files on the threads of a pool, many at a time, and hands the results out one by one in the order
/// in which the files were added. A window of them is on its way at most, so that memory does not grow with
/// the number of files. For the thread alone that owns the pool.
///
/// Where descriptors run short, the file is tried again when nothing else is open, and the pool's owner goes
/// on alone from there.
class OrderedMeasuring {
 public:
  /// All three must outlive this object.
  OrderedMeasuring(const FileSystem& fileSystem, const FileKindTable& kinds, WorkerPool& pool);
  /// Drops what was added and not taken.
  ~OrderedMeasuring();
  OrderedMeasuring(const OrderedMeasuring&) = delete;
  OrderedMeasuring& operator=(const OrderedMeasuring&) = delete;

  [[nodiscard]] bool hasRoom() const;
  /// There must be room.
  void add(std::string path, Beforehand beforehand);

  struct Taken {
    std::string path;
    MeasuredFile measured;
  };
  /// The result of the file that was added first of those not taken; there must be one. Works on others while
  /// it is not there yet. Throws what measuring threw, for want of memory say.
  [[nodiscard]] Taken take();

 private:
  struct Slot {
    std::string path;
    Beforehand beforehand = Beforehand::nothing;
    MeasuredFile result;
    std::atomic<bool> isDone = false;
  };

  const FileSystem& fileSystem_;
  const FileKindTable& kinds_;
  WorkerPool& pool_;
  std::deque<Slot> slots_;  ///< stay where they are until they are taken
};

}  // namespace quillmeter
