// The mocks of the two large interfaces, made here so that no test has to.
#include <accessory/testing/MockAppleiAP2Manager.h>
#include <accessory/testing/MockAppleiAP2ManagerNotifier.h>

namespace accessory::testkit {

template class MockAppleiAP2Requests<android::BnInterface<IAppleiAP2Manager>>;
template class MockAppleiAP2Requests<AppleiAP2ManagerImplItf>;
template class MockAppleiAP2Events<android::BnInterface<IAppleiAP2ManagerNotifier>>;
template class MockAppleiAP2Events<AppleiAP2ManagerNotifierImplItf>;
template class MockAppleiAP2Events<AppleiAP2ManagerNotifierItf>;

}  // namespace accessory::testkit
