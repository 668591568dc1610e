#include "protocol/conversation.h"

#include <utility>

#include "protocol/service.h"

namespace tolvex::sim {

std::optional<Exchange> Conversation::next(TimePoint now) {
  auto piece = splitter_.next();
  if (!piece) return std::nullopt;
  const bool isObject = piece->kind == JsonSplitter::Kind::Object;
  const Reply reply =
      isObject ? service_.answer(half_, piece->text, now) : Reply(ResultCode::JsonErr);
  return Exchange{std::move(piece->text), reply.json(), piece->kind == JsonSplitter::Kind::TooLong};
}

}  // namespace tolvex::sim
