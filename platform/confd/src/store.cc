#include "store.h"

namespace confd::detail {

Store::Store(std::shared_ptr<const Schema> schema)
    : schema_(std::move(schema)), running_(Tree::empty(schema_)), candidate_(running_) {}

std::shared_ptr<const Tree> Store::running() const {
    std::lock_guard<std::mutex> lock(mutex_);
    return running_;
}

std::shared_ptr<const Tree> Store::candidate() const {
    std::lock_guard<std::mutex> lock(mutex_);
    return candidate_;
}

void Store::set_running(std::shared_ptr<const Tree> tree) {
    std::lock_guard<std::mutex> lock(mutex_);
    running_ = std::move(tree);
}

void Store::set_candidate(std::shared_ptr<const Tree> tree) {
    std::lock_guard<std::mutex> lock(mutex_);
    candidate_ = std::move(tree);
}

}  // namespace confd::detail
