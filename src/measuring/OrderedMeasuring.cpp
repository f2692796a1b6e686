#include "measuring/OrderedMeasuring.h"

#include <utility>

#include "files/WorkerPool.h"

namespace quillmeter {
namespace {

/// Enough for every thread to have one on its way and some to wait, and few enough to take no memory to speak
/// of.
constexpr std::size_t kWindow = 256;

}  // namespace

OrderedMeasuring::OrderedMeasuring(const FileSystem& fileSystem, const FileKindTable& kinds, WorkerPool& pool)
    : fileSystem_(fileSystem), kinds_(kinds), pool_(pool) {}

OrderedMeasuring::~OrderedMeasuring() {
  pool_.drop();
}

bool OrderedMeasuring::hasRoom() const {
  return slots_.size() < kWindow;
}

void OrderedMeasuring::add(std::string path, Beforehand beforehand) {
  Slot& slot = slots_.emplace_back();
  slot.path = std::move(path);
  slot.beforehand = beforehand;
  pool_.add([this, &slot] {
    slot.result = measuredFile(fileSystem_, kinds_, slot.path, slot.beforehand);
    slot.isDone.store(true, std::memory_order_release);
  });
}

OrderedMeasuring::Taken OrderedMeasuring::take() {
  Slot& slot = slots_.front();
  pool_.workUntil([&slot] { return slot.isDone.load(std::memory_order_acquire); });
  if (slot.result.error.kind() == DiskError::Kind::fewDescriptors) {
    pool_.workAlone();
    slot.result = measuredFile(fileSystem_, kinds_, slot.path, slot.beforehand);
  }
  Taken result{std::move(slot.path), std::move(slot.result)};
  slots_.pop_front();
  return result;
}

}  // namespace quillmeter
