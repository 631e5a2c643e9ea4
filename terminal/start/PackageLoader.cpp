#include "terminal/start/PackageLoader.h"

#include "host/ConstDef.h"
#include "host/SystemClasses.h"

#include <dlfcn.h>
#include <elf.h>

#include <cstring>
#include <exception>
#include <filesystem>
#include <fstream>

namespace Terminal {

namespace {

using Data::TProblem;
using enum Data::TProblemCode;

using TVersionFunction = int (*)();
using TInitializeFunction = void (*)();

/// The absolute path of the package's file, since a bare name would be searched for among the
/// system's libraries.
std::string PathOf(const std::string& file) {
  std::error_code ignored;
  if (!std::filesystem::exists(file, ignored))
    throw TProblem{PackageMissing, {file}};
  if (!std::filesystem::is_regular_file(file, ignored))
    throw TProblem{PackageNotAFile, {file}};
  return std::filesystem::absolute(file, ignored).string();
}

/// A library that was cut short would crash while it is loaded.
void CheckComplete(const std::string& file) {
  Elf64_Ehdr header{};
  std::ifstream library(file, std::ios::binary);
  library.read(reinterpret_cast<char*>(&header), sizeof header);
  if (!library || std::memcmp(header.e_ident, ELFMAG, SELFMAG) != 0)
    return; // not a library at all, as dlopen says better
  const auto end = header.e_shoff + std::uint64_t{header.e_shnum} * header.e_shentsize;
  if (end > std::filesystem::file_size(file))
    throw TProblem{PackageIncomplete, {file}};
}

/// `binding` is dlopen's.
void* OpenLibrary(const std::string& file, int binding) {
  void* library = dlopen(PathOf(file).c_str(), binding | RTLD_LOCAL);
  if (!library)
    throw TProblem{PackageNotLoadable, {file, dlerror()}};
  return library;
}

template <typename TFunction>
TFunction FindFunction(void* library, const std::string& file, const char* name) {
  void* symbol = dlsym(library, name);
  if (!symbol)
    throw TProblem{PackageWithoutFunction, {file, name}};
  return reinterpret_cast<TFunction>(symbol);
}

void CheckVersion(void* library, const std::string& file) {
  const int version =
      FindFunction<TVersionFunction>(library, file, Constdef::PackageVersionSymbol)();
  if (version != Constdef::ContractVersion)
    throw TProblem{PackageOfOtherVersion,
                   {file, std::to_string(version), std::to_string(Constdef::ContractVersion)}};
}

std::unique_ptr<Baseview::TIBaseView> CreateDescriptor(const std::string& file) {
  const std::string className(Constdef::Class_QuorPrice);
  auto component = System::Classes::CreateRegistered(className, nullptr);
  if (!component)
    throw TProblem{PackageWithoutClass, {file, className}};
  auto* descriptor = dynamic_cast<Baseview::TIBaseView*>(component.get());
  if (!descriptor)
    throw TProblem{PackageClassNotAView, {file, className}};
  (void)component.release();
  return std::unique_ptr<Baseview::TIBaseView>(descriptor);
}

std::unique_ptr<TPackage> Load(const std::string& file) {
  // A package for another contract may need functions that this one does not have. So its version
  // is read before anything else of it is bound.
  CheckComplete(PathOf(file));
  CheckVersion(OpenLibrary(file, RTLD_LAZY), file);
  void* library = OpenLibrary(file, RTLD_NOW);
  const auto initialize =
      FindFunction<TInitializeFunction>(library, file, Constdef::PackageInitializeSymbol);
  const auto finalize =
      FindFunction<TPackage::TFinalize>(library, file, Constdef::PackageFinalizeSymbol);
  initialize();
  return std::make_unique<TPackage>(CreateDescriptor(file), finalize);
}

} // namespace

TPackage::TPackage(std::unique_ptr<Baseview::TIBaseView> descriptor, TFinalize finalize)
    : descriptor_(std::move(descriptor)), finalize_(finalize) {}

TPackage::~TPackage() {
  descriptor_.reset();
  finalize_();
}

std::variant<std::unique_ptr<TPackage>, Data::TProblem> LoadPackage(const std::string& file) {
  try {
    return Load(file);
  } catch (TProblem& problem) {
    return std::move(problem);
  } catch (const std::exception& error) {
    return TProblem{PackageFails, {file, error.what()}};
  }
}

} // namespace Terminal
