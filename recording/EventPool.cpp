// A piece starts at a multiple of its size, so a block's address says which piece it is in. Pieces with free
// blocks, empty ones too, are in a list; those that are full are found through their blocks alone.
#include "recording/EventPool.h"

#include <cstdint>
#include <new>

namespace vestrel::EventPool {
namespace {

#if defined(VESTREL_SANITIZED)
constexpr bool kPooled = false;
#else
constexpr bool kPooled = true;
#endif

constexpr std::size_t kPieceAlignment = std::size_t{64} * 1024;
// Leaves room for the system's own header, so that pieces can lie side by side.
constexpr std::size_t kPieceSize = kPieceAlignment - 64;

struct FreeBlock {
  FreeBlock* next;
};

struct Piece {
  Piece* previous;
  Piece* next;
  FreeBlock* given;     // blocks that came back
  std::uint32_t fresh;  // blocks that were never taken follow from this one on
  std::uint32_t taken;
};

constexpr std::size_t kBlocks = (kPieceSize - sizeof(Piece)) / kBlockSize;

// 64 MB, enough for 1.6 million events.
constexpr std::size_t kMostEmpty = 1024;

thread_local Piece* withRoom = nullptr;
thread_local std::size_t empty = 0;
thread_local bool keepsEmpty = true;

char* BlocksOf(Piece* piece) noexcept {
  return reinterpret_cast<char*>(piece + 1);
}

Piece* PieceOf(void* block) noexcept {
  const auto offset = reinterpret_cast<std::uintptr_t>(block) % kPieceAlignment;
  return reinterpret_cast<Piece*>(static_cast<char*>(block) - offset);
}

void Link(Piece* piece) noexcept {
  piece->previous = nullptr;
  piece->next = withRoom;
  if (withRoom != nullptr) withRoom->previous = piece;
  withRoom = piece;
}

void Unlink(Piece* piece) noexcept {
  if (piece->next != nullptr) piece->next->previous = piece->previous;
  if (piece->previous != nullptr) {
    piece->previous->next = piece->next;
  } else {
    withRoom = piece->next;
  }
}

void Free(Piece* piece) noexcept {
  Unlink(piece);
  ::operator delete(piece, kPieceSize, std::align_val_t(kPieceAlignment));
}

// At the end of the thread nothing is kept any longer.
struct Cleaner {
  Cleaner() = default;
  Cleaner(const Cleaner&) = delete;
  Cleaner& operator=(const Cleaner&) = delete;
  ~Cleaner() {
    keepsEmpty = false;
    for (Piece* piece = withRoom; piece != nullptr;) {
      Piece* const next = piece->next;
      if (piece->taken == 0) Free(piece);
      piece = next;
    }
  }
};

void AddPiece() {
  static thread_local const Cleaner cleaner;
  Link(new (::operator new(kPieceSize, std::align_val_t(kPieceAlignment))) Piece{});
  ++empty;
}

}  // namespace

void* Take() {
  if (!kPooled) return ::operator new(kBlockSize);
  if (withRoom == nullptr) AddPiece();
  Piece* const piece = withRoom;
  if (piece->taken == 0) --empty;
  void* block = piece->given;
  if (block != nullptr) {
    piece->given = piece->given->next;
  } else {
    block = BlocksOf(piece) + kBlockSize * piece->fresh++;
  }
  if (++piece->taken == kBlocks) Unlink(piece);
  return block;
}

void Give(void* block) noexcept {
  if (!kPooled) return ::operator delete(block, kBlockSize);
  Piece* const piece = PieceOf(block);
  if (piece->taken == kBlocks) Link(piece);
  piece->given = new (block) FreeBlock{piece->given};
  if (--piece->taken != 0) return;
  if (!keepsEmpty || empty == kMostEmpty) return Free(piece);
  ++empty;
  // As new: what is taken next lies side by side again.
  piece->given = nullptr;
  piece->fresh = 0;
}

}  // namespace vestrel::EventPool
