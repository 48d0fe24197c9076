#include "Utilities/Thread.h"

#include "Utilities/NamingService.h"

namespace Utilities {

Thread::Thread() : implementation_(ResolveComponent<ThreadImplementation>("ThreadImplementation")) {}

void Thread::Start(Runnable* object) { implementation_->Start(object); }
void Thread::Stop(long waitMilliseconds) { implementation_->Stop(waitMilliseconds); }
bool Thread::IsRunning() const { return implementation_->IsRunning(); }
long Thread::GetExitCode() const { return implementation_->GetExitCode(); }

} // namespace Utilities
