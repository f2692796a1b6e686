import SwiftUI

struct ForecastView: View {
    @Environment(ForecastStore.self) private var store

    var body: some View {
        List(store.forecasts) { forecast in
            ForecastRow(forecast: forecast)
        }
        .overlay {
            if let error = store.lastError {
                ContentUnavailableView("No weather", systemImage: "cloud.slash", description: Text(error))
            }
        }
        .refreshable {
            await store.refresh(from: PreviewSource())
        }
    }
}
