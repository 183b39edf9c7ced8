// SPDX-License-Identifier: MIT
// The life cycle and the instance operations of the provider.
#include "provider/ZORVA_UsbHc_DiagProvider.h"

#include <Pegasus/Provider/ProviderExceptions.h>

#include "diag/LogValue.h"
#include "diag/ZORVA_DiagUtils.h"
#include "usbhc/ClassNames.h"
#include "usbhc/ZORVA_UsbHc_DiagResultForMSE.h"
#include "usbhc/ZORVA_UsbHc_DiagResultForTest.h"
#include "usbhc/ZORVA_UsbHc_DiagTest.h"
#include "usbhc/ZORVA_UsbHc_DiagTestForMSE.h"
#include "usbhc/ZORVA_UsbHc_DiagTestSoftwareAssoc.h"

namespace Pegasus {

const String ZORVA_UsbHc_DiagProvider::DIAG_TEST(class_names::test);
const String ZORVA_UsbHc_DiagProvider::DIAG_RESULT(class_names::result);
const String ZORVA_UsbHc_DiagProvider::DIAG_RESULT_FOR_MSE(class_names::resultForMSE);
const String ZORVA_UsbHc_DiagProvider::DIAG_RESULT_FOR_TEST(class_names::resultForTest);
const String ZORVA_UsbHc_DiagProvider::DIAG_TEST_FOR_MSE(class_names::testForMSE);
const String ZORVA_UsbHc_DiagProvider::DIAG_TEST_SOFTWARE_ASSOC(class_names::testSoftwareAssoc);
const String ZORVA_UsbHc_DiagProvider::DIAG_TEST_SOFTWARE(class_names::testSoftware);

namespace {

using Provider = ZORVA_UsbHc_DiagProvider;

// The three kinds of models have the same operations under different names.

Array<CIMInstance> instanceOf(ZORVA_DiagnosticTestBuilder& tests, const CIMObjectPath& path) {
    return tests.getTestInstance(path);
}
Array<CIMInstance> instanceOf(ZORVA_DiagnosticResultBuilder& results, const CIMObjectPath& path) {
    return results.getResultInstance(path);
}
Array<CIMInstance> instanceOf(ZORVA_AssociationBuilder& associations, const CIMObjectPath& path) {
    return associations.getAssocInstance(path);
}

Array<CIMInstance> instancesOf(ZORVA_DiagnosticTestBuilder& tests) {
    return tests.enumTestInstances();
}
Array<CIMInstance> instancesOf(ZORVA_DiagnosticResultBuilder& results) {
    return results.enumResultInstances();
}
Array<CIMInstance> instancesOf(ZORVA_AssociationBuilder& associations) {
    return associations.enumAssocInstances();
}

Array<CIMObjectPath> pathsOf(ZORVA_DiagnosticTestBuilder& tests) {
    return tests.enumTestReferences();
}
Array<CIMObjectPath> pathsOf(ZORVA_DiagnosticResultBuilder& results) {
    return results.enumResultReferences();
}
Array<CIMObjectPath> pathsOf(ZORVA_AssociationBuilder& associations) {
    return associations.enumAssocReferences();
}

// The served class of the path, ignoring case; null if its class is not served.
const String* servedClassOf(const CIMObjectPath& path) {
    const String& requested = path.getClassName().getString();
    for (const String* served :
         {&Provider::DIAG_TEST, &Provider::DIAG_RESULT, &Provider::DIAG_RESULT_FOR_MSE,
          &Provider::DIAG_RESULT_FOR_TEST, &Provider::DIAG_TEST_FOR_MSE,
          &Provider::DIAG_TEST_SOFTWARE_ASSOC}) {
        if (String::equalNoCase(requested, *served)) {
            return served;
        }
    }
    return nullptr;
}

}  // namespace

ZORVA_UsbHc_DiagProvider::ZORVA_UsbHc_DiagProvider() : _diagResult(&ownDiagResult_) {
    ZORVA_DiagUtils::DEBUG_PRINT("   In ZORVA_UsbHc_DiagProvider constructor\n");
}

ZORVA_UsbHc_DiagProvider::~ZORVA_UsbHc_DiagProvider() = default;

void ZORVA_UsbHc_DiagProvider::initialize(CIMOMHandle& cimom) {
    ZORVA_DiagUtils::DEBUG_PRINT("\n\n\ninit ZORVA_UsbHc_DiagProvider\n\n");
    _cimom = cimom;
    try {
        cimom.disallowProviderUnload();
    } catch (...) {
        // The provider works without it.
    }
}

void ZORVA_UsbHc_DiagProvider::terminate() {
    ZORVA_DiagUtils::DEBUG_PRINT("In terminate provider call\n");
}

template <class Use>
void ZORVA_UsbHc_DiagProvider::withModelOf(const String& className, Use use) {
    if (className == DIAG_TEST) {
        ZORVA_UsbHc_DiagTest tests(_cimom);
        use(tests);
    } else if (className == DIAG_RESULT) {
        use(*_diagResult);
    } else if (className == DIAG_RESULT_FOR_MSE) {
        ZORVA_UsbHc_DiagResultForMSE associations(_cimom, className, "Result", "SystemElement",
                                                  DIAG_RESULT, class_names::managedElement,
                                                  *_diagResult);
        use(associations);
    } else if (className == DIAG_RESULT_FOR_TEST) {
        ZORVA_UsbHc_DiagResultForTest associations(_cimom, className, "DiagnosticResult",
                                                   "DiagnosticTest", DIAG_RESULT, DIAG_TEST,
                                                   *_diagResult);
        use(associations);
    } else if (className == DIAG_TEST_FOR_MSE) {
        ZORVA_UsbHc_DiagTestForMSE associations(_cimom, className, "Antecedent", "Dependent",
                                                DIAG_TEST, class_names::managedElement);
        use(associations);
    } else {
        ZORVA_UsbHc_DiagTestSoftwareAssoc associations(_cimom, className, "Antecedent", "Dependent",
                                                       DIAG_TEST_SOFTWARE, DIAG_TEST);
        use(associations);
    }
}

void ZORVA_UsbHc_DiagProvider::getInstance(const OperationContext& /*context*/,
                                           const CIMObjectPath& ref, Uint32 /*flags*/,
                                           const CIMPropertyList& /*propertyList*/,
                                           ResponseHandler<CIMInstance>& handler) {
    ZORVA_DiagUtils::DEBUG_PRINT(String("\nIn getInstance IF call\n    for ref: ") +
                                 logValue(ref.toString()) + "\n");
    handler.processing();
    if (const String* const served = servedClassOf(ref)) {
        if (*served != DIAG_TEST) {
            ZORVA_DiagUtils::DEBUG_PRINT(String("   In getInstance IF call for ") + *served + "\n");
        }
        withModelOf(*served, [&](auto& model) { handler.deliver(instanceOf(model, ref)); });
    }
    handler.complete();
}

void ZORVA_UsbHc_DiagProvider::enumerateInstances(const OperationContext& /*context*/,
                                                  const CIMObjectPath& ref, Uint32 /*flags*/,
                                                  const CIMPropertyList& /*propertyList*/,
                                                  ResponseHandler<CIMInstance>& handler) {
    ZORVA_DiagUtils::DEBUG_PRINT("In enumerateInstances IF call\n");
    handler.processing();
    if (const String* const served = servedClassOf(ref)) {
        withModelOf(*served, [&](auto& model) { handler.deliver(instancesOf(model)); });
    }
    handler.complete();
}

void ZORVA_UsbHc_DiagProvider::enumerateInstanceNames(const OperationContext& /*context*/,
                                                      const CIMObjectPath& ref,
                                                      ResponseHandler<CIMObjectPath>& handler) {
    ZORVA_DiagUtils::DEBUG_PRINT("In enumerateInstanceNames IF call\n");
    handler.processing();
    if (const String* const served = servedClassOf(ref)) {
        withModelOf(*served, [&](auto& model) { handler.deliver(pathsOf(model)); });
    }
    handler.complete();
}

void ZORVA_UsbHc_DiagProvider::modifyInstance(const OperationContext& /*context*/,
                                              const CIMObjectPath& /*ref*/,
                                              const CIMInstance& /*instance*/, Uint32 /*flags*/,
                                              const CIMPropertyList& /*propertyList*/,
                                              ResponseHandler<void>& /*handler*/) {
    ZORVA_DiagUtils::DEBUG_PRINT("In modifyInstance IF call\n");
    throw NotSupported("ZORVA_UsbHc_DiagProvider::modifyInstance");
}

void ZORVA_UsbHc_DiagProvider::createInstance(const OperationContext& /*context*/,
                                              const CIMObjectPath& /*ref*/,
                                              const CIMInstance& /*instance*/,
                                              ResponseHandler<CIMObjectPath>& /*handler*/) {
    ZORVA_DiagUtils::DEBUG_PRINT("In createInstance IF call\n");
    throw NotSupported("ZORVA_UsbHc_DiagProvider::createInstance");
}

void ZORVA_UsbHc_DiagProvider::deleteInstance(const OperationContext& /*context*/,
                                              const CIMObjectPath& /*ref*/,
                                              ResponseHandler<void>& /*handler*/) {
    ZORVA_DiagUtils::DEBUG_PRINT("In deleteInstance IF call\n");
    throw NotSupported("ZORVA_UsbHc_DiagProvider::deleteInstance");
}

}  // namespace Pegasus
