#include "services/MutexImplementation_PC.h"

#include "Diagnostics/Sink.h"
#include "core/creators/ComponentCreator.h"

#include <cerrno>

namespace Utilities {

namespace {

ComponentCreatorNormal<MutexImplementation_PC> const creator({"MutexImplementation", "$Revision: 1.5 $",
                                                              "Multithreading"});

} // namespace

MutexImplementation_PC::~MutexImplementation_PC() {
    // Memory of a mutex that is still held would stay in the kernel's list of this thread.
    if (holder_ != std::this_thread::get_id()) return;
    for (; held_ > 0; --held_) mutex_->Unlock();
}

void MutexImplementation_PC::Create(String const& name) {
    mutex_ = name == "" ? RobustMutex::MakePrivate() : RobustMutex::OpenShared(name.GetStdString());
}

bool MutexImplementation_PC::Lock(long timeout) {
    if (!mutex_ || !mutex_->Lock(timeout)) return false;
    auto const self = std::this_thread::get_id();
    held_ = holder_ == self ? held_ + 1 : 1;
    holder_ = self;
    return true;
}

void MutexImplementation_PC::Unlock() {
    int failure = EPERM;
    if (holder_ == std::this_thread::get_id()) {
        if (--held_ == 0) holder_ = std::thread::id();
        failure = mutex_->Unlock();
    }
    if (failure == 0) return;
    Diagnostics::String text("Could not unlock CMutex. Error number: ");
    text += Diagnostics::String(static_cast<unsigned long>(failure));
    Diagnostics::Report("MutexImplementation_PC::Unlock", text);
}

} // namespace Utilities
