/*
 * A datastore: the schema and the current running and candidate trees.
 * Transactions and CDB sessions take the trees when they start and keep
 * them, so replacing a configuration never disturbs a reader.
 */
#ifndef CONFD_SRC_STORE_H
#define CONFD_SRC_STORE_H

#include <memory>
#include <mutex>

#include "data_tree.h"
#include "schema.h"

namespace confd::detail {

class Store {
  public:
    explicit Store(std::shared_ptr<const Schema> schema);

    const std::shared_ptr<const Schema>& schema() const { return schema_; }

    std::shared_ptr<const Tree> running() const;
    std::shared_ptr<const Tree> candidate() const;
    void set_running(std::shared_ptr<const Tree> tree);
    void set_candidate(std::shared_ptr<const Tree> tree);

  private:
    std::shared_ptr<const Schema> schema_;
    mutable std::mutex mutex_;
    std::shared_ptr<const Tree> running_;
    std::shared_ptr<const Tree> candidate_;
};

}  // namespace confd::detail

#endif
