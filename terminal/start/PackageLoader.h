#pragma once

#include "data/Problem.h"
#include "host/view/BaseView.h"

#include <memory>
#include <string>
#include <string_view>
#include <variant>

namespace Terminal {

/// A loaded package with the descriptor of its view. Destroying it destroys the descriptor and
/// finalizes the package, whose code stays in memory: the class registry still refers to it.
class TPackage {
public:
  using TFinalize = void (*)();

  TPackage(std::unique_ptr<Baseview::TIBaseView> descriptor, TFinalize finalize);
  TPackage(const TPackage&) = delete;
  TPackage& operator=(const TPackage&) = delete;
  ~TPackage();

  Baseview::TIBaseView& Descriptor() { return *descriptor_; }

private:
  std::unique_ptr<Baseview::TIBaseView> descriptor_;
  TFinalize finalize_;
};

/// Loads the package `file` and creates its descriptor, or says what is wrong and where. No C++ of
/// a package with another contract version is called. The services of the host are installed
/// before.
std::variant<std::unique_ptr<TPackage>, Data::TProblem> LoadPackage(const std::string& file);

} // namespace Terminal
