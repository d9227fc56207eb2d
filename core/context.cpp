// Building a driver context and recognising models and ports.
#include "core/context.h"

#include "core/merge.h"
#include "core/printer_data.h"
#include "core/text.h"

#include <algorithm>
#include <cstring>

namespace {

WCHAR* CopyToHeap(HANDLE heap, const WCHAR* text) {
    const WideView view = text == nullptr ? WideView() : WideView(text);
    auto* copy = static_cast<WCHAR*>(HeapAlloc(heap, 0, (view.size() + 1) * sizeof(WCHAR)));
    if (copy != nullptr) {
        std::copy(view.begin(), view.end(), copy);
        copy[view.size()] = 0;
    }
    return copy;
}

// A context with its heap and nothing else, or null.
DriverContext* NewContext(HANDLE printer) {
    constexpr SIZE_T kInitialHeapSize = 8192;
    HANDLE heap = HeapCreate(0, kInitialHeapSize, 0);
    if (heap == nullptr) {
        return nullptr;
    }
    auto* context =
        static_cast<DriverContext*>(HeapAlloc(heap, HEAP_ZERO_MEMORY, sizeof(DriverContext)));
    if (context == nullptr) {
        HeapDestroy(heap);
        return nullptr;
    }
    context->PrinterHandle = printer;
    context->Heap = heap;
    context->SelfCheck = context;
    context->SelfCheckTail = context;
    return context;
}

void SetPortFlags(DriverContext* context, const PRINTER_INFO_2W& info) {
    const WCHAR* port = info.pPortName == nullptr ? TEXT("") : info.pPortName;
    context->IsRemotePrinter = (info.Attributes & PRINTER_ATTRIBUTE_NETWORK) != 0;
    if (TextStartsWith(port, TEXT("\\\\"))) {
        context->IsRemotePrinter = 1;
    } else {
        context->IsNetworkPort =
            TextStartsWith(port, TEXT("IP_")) || (port[0] >= '1' && port[0] <= '9');
    }
}

// Models are recognised by parts of their names. The first family found decides.
void SetModelFlags(DriverContext* context) {
    const WCHAR* model = context->ModelName;
    context->IsDuplexModel = !TextContains(model, TEXT("-51"));
    context->IsKP49 = TextContains(model, TEXT("Mirv KP-49"));
    if (TextContains(model, TEXT("Mirv KP-41")) || TextContains(model, TEXT("Mirv KP-45")) ||
        context->IsKP49) {
        context->IsKP41Family = 1;
    } else {
        context->IsKP43Family = TextContains(model, TEXT("Mirv KP-43"));
    }
}

// The memory of a whole context is there; a heap gives it in one piece of the address space.
bool IsReadable(const DriverContext* context) {
    MEMORY_BASIC_INFORMATION memory = {};
    if (reinterpret_cast<ULONG_PTR>(context) % alignof(DriverContext) != 0 ||
        VirtualQuery(context, &memory, sizeof(memory)) == 0 || memory.State != MEM_COMMIT ||
        (memory.Protect & (PAGE_NOACCESS | PAGE_GUARD)) != 0) {
        return false;
    }
    const auto* end = static_cast<const BYTE*>(memory.BaseAddress) + memory.RegionSize;
    return end - reinterpret_cast<const BYTE*>(context) >=
           static_cast<ptrdiff_t>(sizeof(DriverContext));
}

// Fills in place a record that an application zeroed or built without a driver version.
void FillUnversionedRecord(DEVMODEW* record, const DevModeRecord& working) {
    if (record->dmDriverVersion == 0) {
        const size_t size =
            std::min<size_t>(working.Public.dmSize + record->dmDriverExtra, sizeof(working));
        std::memcpy(record, &working, size);
    }
}

// The names, the flags and the working record: all that comes from the printer's information.
bool LoadPrinter(DriverContext* context, DEVMODEW* record) {
    const auto info = GetPrinterInfo2(context->PrinterHandle);
    if (!info) {
        return false;
    }
    context->ModelName = CopyToHeap(context->Heap, info->pDriverName);
    if (context->ModelName == nullptr) {
        return false;
    }
    context->PrinterName = CopyToHeap(context->Heap, info->pPrinterName);
    SetPortFlags(context, *info);
    SetModelFlags(context);

    DevModeRecord* working = &context->WorkingDevMode;
    BuildDefaultDevMode(working, info->pPrinterName, context->ModelName);
    if (!MergeDevMode(working, info->pDevMode, context->ModelName) ||
        !MergeDevMode(working, record, context->ModelName)) {
        return false;
    }
    if (record != nullptr) {
        FillUnversionedRecord(record, *working);
    }
    return true;
}

}  // namespace

DriverContext* CreateDriverContext(HANDLE printer, DEVMODEW* record) {
    OwnedContext context(NewContext(printer));
    if (!context || !LoadPrinter(context.get(), record) || !CanHavePrinterData(printer)) {
        return nullptr;
    }
    return context.release();
}

void ReleaseDriverContext(DriverContext* context) {
    if (context != nullptr) {
        context->SelfCheck = context->SelfCheckTail =
            nullptr;  // whoever kept the address sees it is gone
        HeapDestroy(context->Heap);
    }
}

// A sheet's user data is not always ours: it may be null, a number, or another library's record.
bool IsValidDriverContext(const DriverContext* context) {
    return IsReadable(context) && context->SelfCheck == context &&
           context->SelfCheckTail == context;
}
