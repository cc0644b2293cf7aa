/*
 * A directory of its own for one test, removed with everything in it when
 * the object goes. Tests run as parallel processes, so a fixed name under
 * the temporary directory would be shared between them.
 */
#ifndef IPAPP_TEST_SUPPORT_SCRATCH_DIRECTORY_H
#define IPAPP_TEST_SUPPORT_SCRATCH_DIRECTORY_H

#include <filesystem>

namespace ipapp_test {

class ScratchDirectory {
  public:
    ScratchDirectory();
    ~ScratchDirectory();
    ScratchDirectory(const ScratchDirectory&) = delete;
    ScratchDirectory& operator=(const ScratchDirectory&) = delete;

    const std::filesystem::path& path() const { return path_; }

  private:
    std::filesystem::path path_;
};

}  // namespace ipapp_test

#endif
