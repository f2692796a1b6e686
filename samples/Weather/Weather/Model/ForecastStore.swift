import Foundation
import Observation

/// Keeps the forecasts that were fetched last.
@Observable
final class ForecastStore {
    private(set) var forecasts: [Forecast] = []
    private(set) var lastError: String?

    /// Fetches the next day; keeps the old forecasts when that fails.
    func refresh(from source: some ForecastSource) async {
        do {
            forecasts = try await source.nextDay().sorted()
            lastError = nil
        } catch {
            lastError = error.localizedDescription
        }
    }

    /* The driest hour, for a walk. */
    var driest: Forecast? {
        forecasts.min { $0.rain < $1.rain }
    }
    /*
     */
}

protocol ForecastSource {
    func nextDay() async throws -> [Forecast]
}
